// One import, from its first step to its last.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <string>

#include "bridge/finishing/finish_model.h"
#include "bridge/import/import_state.h"
#include "bridge/messages/messages.h"
#include "bridge/passes/passes.h"
#include "bridge/plugin/plugin.h"
#include "bridge/plugin/sections.h"
#include "bridge/reader/field_reader.h"
#include "bridge/reporting/reports.h"
#include "host/base/exception.h"
#include "host/base/pemo.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

// Releases the import's state on every way out of a run.
class StateRelease {
 public:
  StateRelease() = default;
  StateRelease(const StateRelease&) = delete;
  StateRelease& operator=(const StateRelease&) = delete;
  ~StateRelease() { releaseImportState(); }
};

void openInput(const VornOptionList& options) {
  inputFile = options.getValue("File");
  const bool text = options.getValue("Open Mode").equals(KVB_SRRDM::BP_OPEN_MODE_ENUM_TEXT.getName(), true);
  if (!inputFile.open(text ? VornFile::kRead : VornFile::kRead | VornFile::kBinary)) {
    const int reason = errno;
    throw KVB_SRRDM::SILRDM_I_UNABLE_TO_OPEN_INPUT_FILE.makeException({inputFile.getDisplayName()})
        .withContext(std::strerror(reason));
  }
}

void makePackageAndDiagram() {
  KVB_SRRDM::SILRDM_I_CREATING_PACKAGE.log(*importLog);
  auto package = std::make_unique<VornDesignPackage>();
  package->setName("Logical View");
  storeModel->addDesignPackage(package.get());
  designPackage = package.release();
  auto diagram = std::make_unique<VornClassDiagram>();
  diagram->setName("<Main Subject Area>");
  designPackage->addDiagram(diagram.get());
  mainDiagram = diagram.release();
}

// "at byte 4711, section 51 of 68 (model), record 2"
std::string describeReadingPlace() {
  const Section& section = kSections[static_cast<std::size_t>(readingPlace.section) - 1];
  std::string place = "at byte " + std::to_string(inputFile.getPosition()) + ", section " +
                      std::to_string(section.position) + " of " + std::to_string(kSections.size());
  if (*section.name != '\0') {
    place += std::string(" (") + section.name + ")";
  }
  if (readingPlace.record > 0) {
    place += ", record " + std::to_string(readingPlace.record);
  }
  return place;
}

// " inside the text that begins at byte 190, section 60, record 1", or nothing.
std::string describeOpenText() {
  if (!openText) {
    return "";
  }
  return " inside the text that begins at byte " + std::to_string(openText->offset) + ", section " +
         std::to_string(openText->record.section) + ", record " + std::to_string(openText->record.record);
}

// The place of a fault in the file, and what it is where that is told; a file that is too short is at fault
// where it ends.
VornString describeFault(const VornString& what) {
  return inputFile.getDisplayName() + VornString(inputFile.isEndOfFile() ? ": the file ends " : ": ") +
         VornString(describeReadingPlace() + describeOpenText()) + VornString(what.empty() ? "" : ": ") +
         what;
}

// To what reads it, a file that cannot be read on ends there.
void checkReading() {
  if (const int reason = inputFile.getError(); reason != 0) {
    throw PEMO::CANNOT_READ_FILE.makeException({inputFile.getDisplayName(), std::strerror(reason)})
        .withContext(VornString(describeReadingPlace()));
  }
}

void readSections() {
  for (const Section& section : kSections) {
    readingPlace = {section.position, 0, inputFile.getPosition()};
    try {
      section.read();
    } catch (VornException& problem) {
      checkReading();
      problem.setContext(describeFault(problem.getContext()));
      throw;
    }
    checkReading();
    if (importLog->isEnabled(VornSeverity::debug)) {
      importLog->debug("arrived " + describeReadingPlace());
    }
  }
}

// Reports bytes after the last section. They look like an export when they have its number of sections, the
// last of which may be missing.
void reportWhatFollows() {
  const Subject subject({static_cast<int>(kSections.size()), 0, inputFile.getPosition()}, "", "");
  std::size_t ends = 0;
  const auto isExport = [&ends] { return ends + 1 >= kSections.size(); };
  for (std::string_view ahead = inputFile.peek(); !ahead.empty() && (isListening || !isExport());
       ahead = inputFile.peek()) {
    ends += static_cast<std::size_t>(std::ranges::count(ahead, control::kFs));
    inputFile.skip(ahead.size());
  }
  if (const std::size_t size = inputFile.getPosition() - subject.place.offset; size > 0) {
    tell(isExport() ? Irregularity::furtherExport : Irregularity::furtherBytes, subject,
         VornString(std::to_string(size) + " bytes"));
  }
}

void runPasses() {
  std::size_t done = 0;
  for (const Pass& pass : kPasses) {
    importLog->progress("assembling", done++, kPasses.size());
    pass.run();
    if (importLog->isEnabled(VornSeverity::debug)) {
      importLog->debug(std::string("done: pass ") + pass.name);
    }
  }
}

void importAndSave(const VornString& identifier, VornFile& output, const VornOptionList& options,
                   VornLog& log) {
  VornStoreModel model;
  {
    const StateRelease release;
    importLog = &log;
    isListening = log.listensToIrregularities();
    storeModel = &model;
    openInput(options);
    roleNameAtDestination =
        options.getValue("Role Name Location")
            .equals(KVB_SRRDM::BP_ROLE_NAME_LOCATION_ENUM_LINK_DESTINATION__UML_MODELING_STYLE_.getName(),
                    true);
    const VornString encoding = options.getValue("Encoding");
    makePackageAndDiagram();
    readSections();
    reportWhatFollows();
    runPasses();
    const CountBySection kept = isListening ? countKeptRecords() : CountBySection{};
    generateKeys();
    if (isListening) {
      tellRecordCounts(kept);
    }
    finishModel(identifier, encoding);
  }
  VornBridgeDllInterface::saveStoreModel(output, model, log);
}

}  // namespace

bool VornSilverrunRdm262ImportDllInterface::run(const VornString& identifier, VornFile& output,
                                                VornOptionList& options, VornLog& log) {
  try {
    importAndSave(identifier, output, options, log);
  } catch (const std::bad_alloc&) {
    // All that the import held has been given back.
    PEMO::OUT_OF_MEMORY.throwException({options.getValue("File")});
  }
  return true;
}

}  // namespace silrdm
