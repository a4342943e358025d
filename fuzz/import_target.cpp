#include "bridge/plugin.h"
#include "case_file.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/verify.h"
#include "host/std/exception.h"
#include "host/std/output_format.h"
#include "saved_outputs.h"
#include "support.h"
#include "targets.h"

namespace {

using Bridge = silrdm::VornSilverrunRdm262ImportDllInterface;

// Keeps the saved model's JSON; checks the model, too, when it has a format to write it in.
class CheckingLog final : public QuietLog {
 public:
  explicit CheckingLog(const VornOutputFormat* format) : format_(format) {}

  void modelSaved(VornStoreModel& model) override {
    for (const std::string& problem : verifyModel(model)) {
      require(false, "the model does not hang together", problem);
    }
    if (format_ != nullptr) {
      checkEveryOutput(model, *format_);
    } else {
      VornOutputFormat format;
      format.name = "json";
      json = writeToText(model, format);
    }
  }

  std::string json;

 private:
  const VornOutputFormat* format_;
};

void import(std::string_view bytes, VornOptionList& options, VornLog& log) {
  static const MemoryFile file;
  file.write(bytes);
  options.get("File")->setValue(file.path());
  Bridge bridge;
  VornFile output("/dev/null");
  output.setFormat("json");
  try {
    bridge.run("SilverrunRdm262Import", output, options, log);
  } catch (const VornException&) {
    return;  // no export
  }
}

VornOptionList makeOptions() {
  VornOptionList options;
  Bridge().getOptionList(options);
  return options;
}

std::string importGoodFile() {
  // Without a schema, a target system or an owner, which earlier imports could leave behind.
  static const std::string file = VORN_CASES "/finishing/aggregation.case";
  static const CaseFile good = parseCase(file, readAll(file));
  CheckingLog log(nullptr);
  VornOptionList options = makeOptions();
  import(good.exportBytes, options, log);
  require(!log.json.empty(), "a good export cannot be imported");
  return log.json;
}

}  // namespace

void fuzzImport(Bytes input) {
  static const std::string good = importGoodFile();
  VornOptionList options = makeOptions();
  for (const char* name : kImportChoices) {
    VornOption& option = *options.get(name);
    option.setValue(input.choose(option.getChoices()));
  }
  const VornOutputFormat format = takeFormat(input);
  CheckingLog log(&format);
  log.setLevel(format.quoteAll ? VornSeverity::debug : VornSeverity::status);
  import(input.rest(), options, log);
  require(importGoodFile() == good, "an import changes the next one");
}
