// The check of a bridge's options before an import.
#pragma once

class VornLog;
class VornOptionList;

// Whether every option that must name a file does, and the file can be read. Unless `quiet`, logs the first
// that does not: in the words that the option has for it, or PEMO::MISSING_INPUT_FILE.
bool testRequiredInputFiles(const VornOptionList& options, VornLog& log, bool quiet);
