#include "import_runner.h"

#include <map>
#include <stdexcept>

#include "host/base/exception.h"
#include "host/base/import_observer.h"
#include "host/base/irregularity.h"
#include "host/metamodel/verify.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
#include "host/plugin/input_inspection.h"
#include "host/plugin/model_destination.h"
#include "host/services/foreign_content.h"
#include "host/writers/model_outputs.h"
#include "tests/support.h"

namespace {

constexpr const char* kStoodBefore = "what stood here before";

Message makeMessage(VornSeverity severity, const VornString& code, const VornString& text) {
  return {std::string(getSeverityName(severity)) + ' ' + code.c_str(), text.c_str()};
}

// Collects the messages and irregularities of an import, and its model in each format.
struct Collector final : VornLog, VornImportObserver, VornModelDestination {
  Collector(const std::string& bytes, const std::string& path, std::vector<VornOutputFormat> formats,
            ImportResult& into)
      : exportBytes(bytes), modelPath(path), further(std::move(formats)), result(into) {
    setObserver(*this);
  }

  void save(VornStoreModel& model, VornLog& log) override {
    VornModelOutputs({{modelPath}}).save(model, log);
    ++savedModels;
    for (const VornOutputFormat& format : further) {
      result.outputs.emplace_back();
      const TempFolder folder;
      VornModelOutputs({{folder.path("output"), format}}).save(model, log);
      result.outputs.back() += readFile(folder.path("output"));
      ++savedModels;
    }
    for (const std::string& problem : verifyModel(model)) {
      require(false, problem);
    }
  }
  void put(VornSeverity severity, const VornString& code, const VornString& text) override {
    if (severity == VornSeverity::debug) {
      return;
    }
    const Message message = makeMessage(severity, code, text);
    if (result.outputs.empty()) {
      result.messages.push_back(message);
    } else {
      result.outputs.back() += message.toLine() + '\n';
    }
    if (wantsIrregularities() && severity == VornSeverity::warning && code.view().starts_with("KVB")) {
      require(code.view() == announced, "a warning without its event: " + std::string(text.view()));
    }
    announced.clear();
  }
  bool wantsIrregularities() const override { return isEnabled(VornSeverity::debug); }
  void irregular(const VornIrregularity& event) override {
    if (!wantsIrregularities()) {
      return;
    }
    const auto quoted = [](std::string_view text) { return " '" + std::string(text) + "'"; };
    result.events += std::string(event.kind) + ' ' + std::to_string(event.section) + '.' +
                     std::to_string(event.record) + quoted(event.identifier) + quoted(event.name) +
                     quoted(event.value) + '\n';
    const std::string before = exportBytes.substr(0, event.offset);
    require(before.empty() || before.back() == '\r' || before.back() == '\x1C', "an offset inside a record");
    require(exportBytes.find(event.identifier, event.offset) != std::string::npos,
            "an offset behind its record");
    require(announced.empty(), "an event without its warning");
    announced = event.warning;
    dropped[event.section] += static_cast<std::size_t>(event.dropped);
  }
  void recordsCounted(const VornRecordCount& count) override {
    ++countedSections;
    require(count.read == count.kept + count.dropped,
            "read are not those kept and dropped: " + describe(count));
    require(count.dropped == dropped[count.section], "dropped are not those told: " + describe(count));
  }
  void require(bool holds, const std::string& otherwise) const {
    if (!holds) {
      result.problems.push_back(otherwise);
    }
  }

  const std::string& exportBytes;
  std::string modelPath;
  std::vector<VornOutputFormat> further;
  ImportResult& result;
  int savedModels = 0;
  int countedSections = 0;
  std::string announced;  // the code of the warning that must follow
  std::map<int, std::size_t> dropped;
};

std::ptrdiff_t countOpenFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

// What the look at a file says before an import; empty for nothing.
std::string lookAt(VornImportBridgeDllInterface& bridge, const std::string& exportBytes) {
  VornForeignContentInspector foreign;
  const auto inspector = dynamic_cast<VornInputInspection&>(bridge).makeInspector();
  foreign.look(exportBytes);
  inspector->look(exportBytes);
  return foreign.finish("the export").problem + inspector->finish("the export").problem;
}

}  // namespace

ImportResult runImport(const std::string& exportBytes, const OptionValues& values, VornSeverity level,
                       const std::vector<VornOutputFormat>& formats) {
  static const TempFolder folder;  // one, so that messages with paths are the same
  const std::string input = folder.write("export.txt", exportBytes);
  const std::string saved = folder.write("model.json", kStoodBefore);

  const std::ptrdiff_t openFiles = countOpenFiles();
  ImportResult result;
  Collector log(exportBytes, saved, formats, result);
  const auto require = [&log](bool holds, const char* otherwise) { log.require(holds, otherwise); };
  log.setLevel(level);
  VornFile output;
  output.setDestination(log);
  try {
    static const VornBridgeLibrary library(VORN_PLUGIN);
    VornOptionList options;
    library.getInterface().getOptionList(options);
    options.get("File")->setValue(VornString(input));
    for (const auto& [name, value] : values) {
      VornOption* option = options.get(VornString(name));
      if (option == nullptr) {
        throw std::invalid_argument("there is no option " + name);
      }
      option->setValue(VornString(value));
    }
    require(library.getInterface().run("", output, options, log), "returns false");
    if (const std::string problem = lookAt(library.getInterface(), exportBytes); !problem.empty()) {
      log.require(false, "would be refused: " + problem);
    }
  } catch (const VornException& problem) {
    result.failure = makeMessage(problem.getSeverity(), problem.getCode(), problem.getText());
    result.context = problem.getContext().c_str();
  }
  if (const std::string stands = readFile(saved); stands != kStoodBefore) {
    result.saved = stands;
  }
  require(result.saved.has_value() != result.failure.has_value(), "fails and saves, or does neither");
  require(log.savedModels == (result.failure ? 0 : 1 + static_cast<int>(formats.size())),
          "does not tell the log of the model saved");
  require(log.countedSections == (result.failure || level != VornSeverity::debug ? 0 : 14),
          "does not count the records of each section");
  require(folder.count() == 2, "leaves a file behind");
  require(countOpenFiles() == openFiles, "leaves a file open");
  return result;
}
