// VornModelOutputs: saves a model into files, each in its format.
#pragma once

#include <string>
#include <vector>

#include "host/base/file.h"
#include "host/plugin/model_destination.h"
#include "host/writers/common/output_format.h"

struct VornModelOutput {
  std::string path;
  VornOutputFormat format = {};
};

class VornModelOutputs : public VornModelDestination {
 public:
  explicit VornModelOutputs(std::vector<VornModelOutput> outputs);

  // The file to hand to a bridge's `run`. Valid as long as this object.
  VornFile& getFile() { return file_; }

  // Saves into one file after the other and shows the progress to the log's observer.
  void save(VornStoreModel& model, VornLog& log) override;

 private:
  std::vector<VornModelOutput> outputs_;
  VornFile file_;
};
