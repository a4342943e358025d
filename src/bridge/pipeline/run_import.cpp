#include "bridge/pipeline/run_import.h"

#include <string>

#include "bridge/finishing/finish_model.h"
#include "bridge/import/import.h"
#include "bridge/messages/messages.h"
#include "bridge/pipeline/passes.h"
#include "bridge/pipeline/sections.h"
#include "host/base/exception.h"
#include "host/base/options.h"
#include "host/base/pemo.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/verify.h"

namespace silrdm {

namespace {

void openExport(Import& import, const VornOptionList& options) {
  const bool asText = options.getValue("Open Mode").equals(KVB_SRRDM::BP_OPEN_MODE_ENUM_TEXT.getName(), true);
  import.reader.open(options.getValue("File"), asText);
}

void makePackageAndDiagram(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_PACKAGE.log(import.log);
  auto package = std::make_unique<VornDesignPackage>();
  package->setName("Logical View");
  import.designPackage = &import.storeModel.addDesignPackage(std::move(package));
  auto diagram = std::make_unique<VornClassDiagram>();
  diagram->setName("<Main Subject Area>");
  import.mainDiagram = diagram.get();
  import.designPackage->addDiagram(std::move(diagram));
}

// "at byte 4711, section 51 of 68 (model), record 2"
std::string describePlace(const ExportReader& reader) {
  const RecordPlace& place = reader.getPlace();
  std::string text = "at byte " + std::to_string(reader.getFile().getPosition()) + ", section " +
                     std::to_string(place.section) + " of " + std::to_string(kSections.size());
  if (const char* name = nameOfSection(place.section); *name != '\0') {
    text += std::string(" (") + name + ")";
  }
  if (place.record > 0) {
    text += ", record " + std::to_string(place.record);
  }
  return text;
}

// Describes where in the file a fault is, and the fault if it is known.
VornString describeFault(const ExportReader& reader, const VornString& fault) {
  const VornFile& file = reader.getFile();
  return file.getDisplayName() + VornString(file.isEndOfFile() ? ": the file ends " : ": ") +
         VornString(describePlace(reader) + reader.describeOpenText()) +
         VornString(fault.empty() ? "" : ": ") + fault;
}

// The reader sees a read error as end of file; report it here.
void checkReading(const ExportReader& reader) {
  if (const std::error_code reason = reader.getFile().getError()) {
    throw PEMO::CANNOT_READ_FILE
        .makeException({reader.getFile().getDisplayName(), VornString(reason.message())})
        .withContext(VornString(describePlace(reader)));
  }
}

void readSections(Import& import) {
  for (const Section& section : kSections) {
    import.reader.beginSection(section.position);
    try {
      section.read(import);
    } catch (VornException& problem) {
      checkReading(import.reader);
      problem.setContext(describeFault(import.reader, problem.getContext()));
      throw;
    }
    checkReading(import.reader);
    import.reporter.getObserver().stageDone("sections", section.position);
    if (import.log.isEnabled(VornSeverity::debug)) {
      import.log.debug("arrived " + describePlace(import.reader));
    }
  }
  import.reader.skipRest();
}

// In debug builds, names the pass that left the model inconsistent.
void verifyAfter([[maybe_unused]] const Pass& pass, [[maybe_unused]] Import& import) {
#ifndef NDEBUG
  if (const auto problems = verifyModel(import.storeModel, VornModelState::incomplete); !problems.empty()) {
    PEMO::INCONSISTENT_MODEL.throwException(
        {VornString("after " + std::string(pass.name) + ": " + problems.front())});
  }
#endif
}

void runPasses(Import& import) {
  std::size_t done = 0;
  for (const Pass& pass : kPasses) {
    import.reporter.getObserver().progress("assembling", done++, kPasses.size());
    pass.run(import);
    verifyAfter(pass, import);
    import.reporter.getObserver().stageDone("passes", pass.position);
    if (import.log.isEnabled(VornSeverity::debug)) {
      import.log.debug(std::string("done: pass ") + pass.name);
    }
  }
}

void finish(Import& import, const VornString& buildVersion) {
  const bool counts = import.reporter.reportsIrregularities();
  const CountBySection kept = counts ? countKeptRecords(import) : CountBySection{};
  generateKeys(import);
  if (counts) {
    import.reporter.reportRecordCounts(import.reader.getRecordCounts(), kept);
  }
  finishModel(import, buildVersion);
}

ImportOptions readOptions(const VornString& identifier, const VornOptionList& options) {
  using M = KVB_SRRDM;
  const VornString& atDestination =
      M::BP_ROLE_NAME_LOCATION_ENUM_LINK_DESTINATION__UML_MODELING_STYLE_.getName();
  return {identifier, options.getValue("Encoding"),
          options.getValue("Role Name Location").equals(atDestination, true)};
}

}  // namespace

void runImport(const VornString& identifier, const VornString& buildVersion, const VornOptionList& options,
               VornStoreModel& model, VornLog& log) {
  Import import(readOptions(identifier, options), log, model, nameOfSection);
  openExport(import, options);
  makePackageAndDiagram(import);
  readSections(import);
  runPasses(import);
  finish(import, buildVersion);
}

}  // namespace silrdm
