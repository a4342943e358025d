#include <cstdlib>
#include <filesystem>

#include "cli/commands.h"
#include "host/base/exception.h"
#include "host/base/pemo.h"

namespace cli {

namespace {

constexpr const char* kFromProgram = "../lib/vorn/VornSilverrunRdm262Import.so";

}  // namespace

std::string findBridge(const CommonOptions& common) {
  if (!common.bridge.empty()) {
    return common.bridge;
  }
  if (const char* named = std::getenv("VORN_BRIDGE"); named != nullptr && *named != '\0') {
    return named;
  }
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) {
    // Without its folder the path would be one below the current folder, where anybody's library may be.
    PEMO::CANNOT_LOAD_BRIDGE.throwException(
        {kFromProgram, VornString("the location of the program is unknown (" + error.message() +
                                  "): name the plug-in with --bridge or VORN_BRIDGE")});
  }
  return (program.parent_path() / kFromProgram).lexically_normal().string();
}

}  // namespace cli
