#include "host/writers/model_outputs.h"

#include <utility>

#include "host/base/import_observer.h"
#include "host/base/log.h"
#include "host/base/output_file.h"
#include "host/writers/formats.h"

VornModelOutputs::VornModelOutputs(std::vector<VornModelOutput> outputs) : outputs_(std::move(outputs)) {
  if (!outputs_.empty()) {
    file_ = VornString(outputs_.front().path);
  }
  file_.setDestination(*this);
}

void VornModelOutputs::save(VornStoreModel& model, VornLog& log) {
  for (const VornModelOutput& output : outputs_) {
    const auto showProgress = [&log](std::size_t written) {
      if (VornImportObserver* observer = log.getObserver()) {
        observer->progress("saving", written, 0);
      }
    };
    showProgress(0);
    const VornModelFormat& format = getModelFormat(output);
    VornOutputFile file(output.path);
    file.setListener(showProgress);
    format.write(model, output.format, file, log);
    file.commit();
  }
}
