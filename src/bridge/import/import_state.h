// The state of the import that is running: one set, at module level, shared by the reader, the loaders and
// the passes. It starts empty; `releaseImportState` brings it back there at the end of every run.
#pragma once

#include <array>
#include <cstddef>

#include "bridge/elements/parsed_elements.h"
#include "host/base/containers.h"
#include "host/base/file.h"

class VornClassDiagram;
class VornDatabaseSchema;
class VornDesignPackage;
class VornLog;
class VornStoreModel;
struct targetDatabaseInfo;

namespace silrdm {

// Records of up to this many bytes, less the zero byte that ends them, are read whole.
inline constexpr std::size_t kRecordCapacity = 16384;

// By the section's number; the first is for none.
using CountBySection = std::array<std::size_t, 69>;

extern VornFile inputFile;                  // the export
extern char recordBuffer[kRecordCapacity];  // the record that was read last
extern VornLog* importLog;                  // the run's log
extern bool isListening;                    // the log listens to irregularities
extern CountBySection recordsRead;          // those with something in them
extern CountBySection recordsDropped;       // as told to a log that listens
extern VornStoreModel* storeModel;          // the model being built; the run owns it
extern VornDesignPackage* designPackage;    // "Logical View", in the model
extern VornClassDiagram* mainDiagram;       // "<Main Subject Area>", in the design package
extern bool roleNameAtDestination;          // role names stand at the far end of their link
extern bool hasCandidateKeys;               // among the keys that have columns
extern bool hasOtherKeys;
extern SILRDMSchema* currentSchema;                     // what the schema section says, or null; owned here
extern const targetDatabaseInfo* detectedTargetSystem;  // the export's target system, or null
extern VornDatabaseSchema* defaultSchema;               // made when something needs it; in the model
extern VornStringHashSet defaultPlacedNames;            // the names already placed in it

// Destroys every parsed element and every host object that the model does not own, and empties the state.
// The log stays until the next run sets its own.
void releaseImportState();

}  // namespace silrdm
