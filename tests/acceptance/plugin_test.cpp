// The plug-in as a library: how loading one can fail.
#include <gtest/gtest.h>

#include <filesystem>

#include "host/modelbridge/bridge_library.h"
#include "host/std/exception.h"

namespace {

const std::filesystem::path kPlugin = VORN_PLUGIN;

TEST(PluginTest, MustBeALibraryWithTheFactoryThatItsNameCallsFor) {
  const std::pair<std::filesystem::path, std::string> cases[] = {
      {kPlugin.parent_path(), "no such file"},
      {std::filesystem::path(VORN_EXAMPLES) / "bookshop.txt", "bookshop.txt: "},
      {kPlugin.parent_path() / "libvorn-host.so", "it does not export getlibvorn-hostInterface"}};
  for (const auto& [library, reason] : cases) {
    try {
      const VornBridgeLibrary loaded(library.string());
      ADD_FAILURE() << library << " is loaded";
    } catch (const VornException& problem) {
      const std::string text = problem.getText().c_str();
      EXPECT_STREQ(problem.getCode().c_str(), "VORN_F0005");
      EXPECT_NE(text.find("'" + library.string() + "'"), std::string::npos) << text;
      EXPECT_NE(text.find(reason), std::string::npos) << text;
    }
  }
}

}  // namespace
