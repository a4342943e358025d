#include "bridge/plugin/plugin.h"

extern "C" __attribute__((visibility("default"))) OrsaDllInterface* getVornSilverrunRdm262ImportInterface() {
  static silrdm::VornSilverrunRdm262ImportDllInterface object;
  return &object;
}
