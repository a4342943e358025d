// VornBridgeLibrary: a bridge, loaded.
#pragma once

#include <string>

class VornImportBridgeDllInterface;

class VornBridgeLibrary {
 public:
  // Loads the plug-in and asks it for its object. Throws VornException (PEMO::CANNOT_LOAD_BRIDGE) when `file`
  // is no library that can be loaded, does not export the factory that its name calls for, or is no import
  // bridge.
  explicit VornBridgeLibrary(const std::string& file);
  VornBridgeLibrary(const VornBridgeLibrary&) = delete;
  VornBridgeLibrary& operator=(const VornBridgeLibrary&) = delete;
  ~VornBridgeLibrary();

  // The plug-in's object. It lives as long as this one, and nothing made by it may live longer.
  VornImportBridgeDllInterface& getInterface() const { return *interface_; }

 private:
  void* handle_ = nullptr;
  VornImportBridgeDllInterface* interface_ = nullptr;
};
