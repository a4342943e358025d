// VornModelDestination: where a bridge's model goes. The host makes one, hands it to the bridge with the
// output file (VornFile::setDestination) and so decides in which formats and how often the model is saved.
#pragma once

class VornLog;
class VornStoreModel;

class VornModelDestination {
 public:
  VornModelDestination() = default;
  VornModelDestination(const VornModelDestination&) = delete;
  VornModelDestination& operator=(const VornModelDestination&) = delete;
  virtual ~VornModelDestination() = default;

  // Takes a complete model, which the caller keeps. Throws VornException; nothing is half written then.
  virtual void save(VornStoreModel& model, VornLog& log) = 0;
};
