// The plug-in as a library: what it exports, and how loading one can fail.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "host/modelbridge/bridge_library.h"
#include "host/std/exception.h"

namespace {

const std::filesystem::path kPlugin = VORN_PLUGIN;

// The dynamic symbols that the library defines, as nm shows them.
std::vector<std::string> listExports(const std::filesystem::path& library) {
  std::vector<std::string> symbols;
  const std::string command = "nm -D --defined-only '" + library.string() + "'";
  std::FILE* lines = ::popen(command.c_str(), "r");  // NOLINT(cert-env33-c): the path is the build's own
  std::array<char, 4096> line{};
  while (lines != nullptr && std::fgets(line.data(), line.size(), lines) != nullptr) {
    const std::string symbol = line.data();
    symbols.push_back(symbol.substr(symbol.find(' ') + 1));
  }
  EXPECT_TRUE(lines != nullptr && ::pclose(lines) == 0) << "nm cannot be run";
  return symbols;
}

void expectNotLoaded(const std::filesystem::path& library, const std::string& reason) {
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

TEST(PluginTest, ExportsItsFactoryAlone) {
  EXPECT_EQ(listExports(kPlugin),
            std::vector<std::string>{"T get" + kPlugin.stem().string() + "Interface\n"});
}

TEST(PluginTest, HasOneObjectHoweverOftenLoaded) {
  const VornBridgeLibrary first(VORN_PLUGIN);
  const VornBridgeLibrary second(VORN_PLUGIN);
  EXPECT_EQ(&first.getInterface(), &second.getInterface());
}

TEST(PluginTest, MustBeAFile) {
  expectNotLoaded("/no/such/Bridge.so", "no such file");
  expectNotLoaded(kPlugin.parent_path(), "no such file");
}

TEST(PluginTest, MustBeALibrary) {
  expectNotLoaded(std::filesystem::path(VORN_EXAMPLES) / "bookshop.txt", "bookshop.txt: ");
}

TEST(PluginTest, MustExportTheFactoryThatItsNameCallsFor) {
  expectNotLoaded(kPlugin.parent_path() / "libvorn-host.so", "does not export getlibvorn-hostInterface");
}

}  // namespace
