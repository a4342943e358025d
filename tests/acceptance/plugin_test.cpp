// The plug-in as a library: what it exports, and how loading one can fail.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>

#include "host/modelbridge/bridge_library.h"
#include "host/std/exception.h"

namespace {

const std::filesystem::path kPlugin = VORN_PLUGIN;

TEST(PluginTest, ExportsItsFactoryAlone) {
  const std::string command = "nm -D --defined-only '" + kPlugin.string() + "'";
  std::FILE* lines = ::popen(command.c_str(), "r");  // NOLINT(cert-env33-c): the path is the build's own
  ASSERT_NE(lines, nullptr);
  std::string symbols;
  for (std::array<char, 4096> line{}; std::fgets(line.data(), line.size(), lines) != nullptr;) {
    const std::string symbol = line.data();
    symbols += symbol.substr(symbol.find(' '));
  }
  EXPECT_EQ(::pclose(lines), 0) << "nm cannot be run";
  EXPECT_EQ(symbols, " T get" + kPlugin.stem().string() + "Interface\n");
}

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
