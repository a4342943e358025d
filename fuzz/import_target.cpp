#include <functional>
#include <utility>
#include <vector>

#include "bridge/plugin/plugin.h"
#include "case_file.h"
#include "host/base/exception.h"
#include "host/base/import_observer.h"
#include "host/base/irregularity.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/traversal.h"
#include "host/metamodel/verify.h"
#include "host/plugin/model_destination.h"
#include "host/writers/common/output_format.h"
#include "saved_outputs.h"
#include "support.h"
#include "targets.h"

namespace {

using Bridge = silrdm::VornSilverrunRdm262ImportDllInterface;

// Hands on the model that is saved, which must be consistent.
class ModelLog final : public QuietLog, public VornImportObserver, public VornModelDestination {
 public:
  explicit ModelLog(std::function<void(VornStoreModel&)> use) : use_(std::move(use)) { setObserver(*this); }

  void save(VornStoreModel& model, VornLog& /*log*/) override {
    for (const std::string& problem : verifyModel(model)) {
      require(false, "the model does not hang together", problem);
    }
    use_(model);
  }
  bool wantsIrregularities() const override { return isEnabled(VornSeverity::debug); }
  void recordsCounted(const VornRecordCount& count) override {
    require(count.read == count.kept + count.dropped, "read are not those kept and dropped", describe(count));
  }

 private:
  std::function<void(VornStoreModel&)> use_;
};

void import(std::string_view bytes, VornOptionList& options, ModelLog& log) {
  options.get("File")->setValue(putIntoFile(bytes));
  Bridge bridge;
  VornFile output;
  output.setDestination(log);
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

std::string readCase(const std::string& name) {
  const std::string file = VORN_CASES "/" + name + ".case";
  return parseCase(file, readAll(file)).exportBytes;
}

std::string importGoodFile() {
  // Without a schema, a target system or an owner, which earlier imports could leave behind.
  static const std::string good = readCase("finishing/aggregation");
  std::string json;
  ModelLog log([&](VornStoreModel& model) {
    VornOutputFormat format;
    format.name = "json";
    json = writeToText(model, format);
  });
  VornOptionList options = makeOptions();
  import(good, options, log);
  require(!json.empty(), "a good export cannot be imported");
  return json;
}

// Gives every object of a model texts that mean something in one format or another.
class HostileTexts final : public VornTraversalOperation, private VornTextVisitor {
 public:
  explicit HostileTexts(Bytes& bytes) : bytes_(bytes) {}

  void process(VornObject& object, void* /*user*/) override { object.visitTexts(*this); }

 private:
  // A new text, often hostile, or one from before: names that clash are of interest.
  void visit(VornString& text) override {
    constexpr std::string_view kHostile[] = {
        "'", "\"", "]", "`", "```", "'''", "--", "\n", "\r\n;", "/*", "*/",  "\\",  "<b>",    "</", "|",
        "{", "}",  "(", ")", "%%",  "&#",  "$$", "$(", "E'",    "q'", ";\n", "\n.", "\nGO\n", "#"};
    const std::uint8_t choice = bytes_.take();
    if (choice < 64 && !texts_.empty()) {
      text = texts_[choice % texts_.size()];
    } else {
      const std::string hostile(choice < 160 ? kHostile[choice % std::size(kHostile)] : "");
      text = texts_.emplace_back(hostile + std::string(bytes_.takeText()));
    }
  }

  Bytes& bytes_;
  std::vector<VornString> texts_;
};

}  // namespace

void fuzzImport(Bytes input) {
  static const std::string good = importGoodFile();
  VornOptionList options = makeOptions();
  for (const char* name : kImportChoices) {
    VornOption& option = *options.get(name);
    option.setValue(input.choose(option.getChoices()));
  }
  const VornOutputFormat format = takeFormat(input);
  ModelLog log([&](VornStoreModel& model) { checkEveryOutput(model, format); });
  log.setLevel(format.quoteAll ? VornSeverity::debug : VornSeverity::status);
  import(input.rest(), options, log);
  require(importGoodFile() == good, "an import changes the next one");
}

void fuzzWriters(Bytes input) {
  static const std::string exports[] = {readCase("sql/keys"),
                                        readCase("sql/views"),
                                        readCase("inheritance/supertype_and_subtypes"),
                                        readCase("diagrams/crows_feet"),
                                        readCase("schemas/users"),
                                        readCase("keys/what_cannot_be_connected"),
                                        readCase("indexes/order"),
                                        readCase("types/sizes_of_columns")};
  const VornOutputFormat format = takeFormat(input);
  const std::string& bytes = input.choose(exports);
  ModelLog log([&](VornStoreModel& model) {
    HostileTexts texts(input);
    model.depthTraversal(texts, nullptr);
    checkEveryOutput(model, format);
  });
  VornOptionList options = makeOptions();
  import(bytes, options, log);
}
