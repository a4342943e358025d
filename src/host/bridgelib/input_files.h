// The check of a bridge's options before an import.
#pragma once

class VornLog;
class VornOptionList;

// Whether every option that must name a file does, and the file can be opened for reading. Logs the first
// that does not (PEMO::MISSING_INPUT_FILE), unless `quiet`.
bool testRequiredInputFiles(const VornOptionList& options, VornLog& log, bool quiet);
