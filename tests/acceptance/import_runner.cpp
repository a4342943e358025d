#include "import_runner.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "host/metamodel/verify.h"
#include "host/modelbridge/bridge_library.h"
#include "host/modelbridge/dll_interface.h"
#include "host/std/exception.h"

namespace {

class CollectingLog final : public VornLog {
 public:
  explicit CollectingLog(ImportResult& result) : result_(result) {}

  int getSavedModels() const { return savedModels_; }

  void modelSaved(VornStoreModel& model) override {
    ++savedModels_;
    const auto problems = verifyModel(model);
    result_.problems.insert(result_.problems.end(), problems.begin(), problems.end());
  }

 private:
  void put(VornSeverity severity, const VornString& code, const VornString& text) override {
    if (severity != VornSeverity::debug) {
      result_.messages.push_back({severity, code.c_str(), text.c_str()});
    }
  }

  ImportResult& result_;
  int savedModels_ = 0;
};

std::ptrdiff_t countEntries(const std::filesystem::path& folder) {
  const std::filesystem::directory_iterator entries(folder);
  return std::distance(begin(entries), end(entries));
}

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

void setOption(VornOptionList& options, const std::string& name, const std::string& value) {
  VornOption* option = options.get(VornString(name));
  if (option == nullptr) {
    throw std::invalid_argument("there is no option " + name);
  }
  option->setValue(VornString(value));
}

}  // namespace

std::string toLine(const Message& message) {
  return std::string(getSeverityName(message.severity)) + ' ' + message.code + ' ' + message.text;
}

bool isMeant(const std::string& wanted, const Message& message) {
  return wanted == toLine(message) || wanted + ' ' + message.text == toLine(message);
}

VornImportBridgeDllInterface& getBridge() {
  try {
    static const VornBridgeLibrary library(VORN_PLUGIN);
    return library.getInterface();
  } catch (const VornException& problem) {
    throw std::runtime_error(problem.getText().c_str());
  }
}

ImportRunner::ImportRunner() {
  std::string pattern = (std::filesystem::temp_directory_path() / "import-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("cannot make a folder " + pattern);
  }
  folder_ = pattern;
}

ImportRunner::~ImportRunner() {
  std::filesystem::remove_all(folder_);
}

ImportResult ImportRunner::run(const std::string& exportBytes, const OptionValues& values,
                               VornSeverity level) {
  const std::string kStoodBefore = "what stood here before";
  const auto input = folder_ / "export.txt";
  const auto saved = folder_ / "model.json";
  writeFile(input, exportBytes);
  writeFile(saved, kStoodBefore);

  VornOptionList options;
  getBridge().getOptionList(options);
  setOption(options, "File", input.string());
  for (const auto& [name, value] : values) {
    setOption(options, name, value);
  }

  const std::ptrdiff_t openFiles = countEntries("/proc/self/fd");
  ImportResult result;
  const auto require = [&result](bool holds, const char* otherwise) {
    if (!holds) {
      result.problems.emplace_back(otherwise);
    }
  };
  CollectingLog log(result);
  log.setLevel(level);
  VornFile output{VornString(saved.string())};
  try {
    require(getBridge().run("", output, options, log), "returns false");
  } catch (const VornException& problem) {
    result.failure = {{problem.getSeverity(), problem.getCode().c_str(), problem.getText().c_str()},
                      problem.getContext().c_str()};
  }
  const std::string stands = readFile(saved);
  if (stands != kStoodBefore) {
    result.saved = stands;
  }
  require(result.saved.has_value() != result.failure.has_value(), "fails and saves, or does neither");
  require(log.getSavedModels() == (result.failure ? 0 : 1), "does not tell the log of the model saved");
  require(countEntries(folder_) == 2, "leaves a file behind");
  require(countEntries("/proc/self/fd") == openFiles, "leaves a file open");
  return result;
}

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot read " + path.string());
  }
  return {std::istreambuf_iterator<char>(file), {}};
}
