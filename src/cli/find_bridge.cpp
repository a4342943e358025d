#include <cstdlib>
#include <filesystem>

#include "cli/commands.h"

namespace cli {

std::string findBridge(const CommonOptions& common) {
  if (!common.bridge.empty()) {
    return common.bridge;
  }
  if (const char* named = std::getenv("VORN_BRIDGE"); named != nullptr && *named != '\0') {
    return named;
  }
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return (program.parent_path() / "../lib/vorn/VornSilverrunRdm262Import.so").lexically_normal().string();
}

}  // namespace cli
