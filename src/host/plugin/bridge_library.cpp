#include "host/plugin/bridge_library.h"

#include <dlfcn.h>

#include <filesystem>

#include "host/base/pemo.h"
#include "host/plugin/dll_interface.h"

namespace {

using Factory = OrsaDllInterface* (*)();

[[noreturn]] void fail(const std::string& file, const std::string& reason) {
  PEMO::CANNOT_LOAD_BRIDGE.throwException({VornString(file), VornString(reason)});
}

}  // namespace

VornBridgeLibrary::VornBridgeLibrary(const std::string& file) {
  // A path without a folder would be searched for wherever the system keeps libraries.
  const auto path = std::filesystem::absolute(file);
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    fail(file, "no such file");
  }
  handle_ = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle_ == nullptr) {
    fail(file, ::dlerror());
  }
  const std::string factoryName = "get" + path.stem().string() + "Interface";
  const auto factory = reinterpret_cast<Factory>(::dlsym(handle_, factoryName.c_str()));
  interface_ = factory == nullptr ? nullptr : dynamic_cast<VornImportBridgeDllInterface*>(factory());
  if (interface_ == nullptr) {
    ::dlclose(handle_);
    fail(file, factory == nullptr ? "it does not export " + factoryName : "it is not an import bridge");
  }
}

VornBridgeLibrary::~VornBridgeLibrary() {
  ::dlclose(handle_);
}
