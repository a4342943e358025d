// The fuzz targets: each takes any bytes whatever, and requires what must be true of them.
#pragma once

#include <cstddef>

class Bytes;

// A whole import: it fails cleanly, or the model hangs together and every writer can write it. The next
// import knows nothing of it. The input is a byte for each option with choices, two for the output's choices,
// then the export.
void fuzzImport(Bytes input);
inline constexpr const char* kImportChoices[] = {"Role Name Location", "Open Mode", "Encoding", "Version"};
inline constexpr std::size_t kImportHead = 6;  // bytes in front of the export

// Records and fields are what the format's rules, written down plainly, say they are.
void fuzzFieldReader(Bytes input);
// The look at a file is the same whatever blocks the file comes in.
void fuzzInspection(Bytes input);
// What a repair makes of any bytes is repaired no further; a sound export is left alone, and restored where
// it was damaged.
void fuzzRepair(Bytes input);
// A type name means the same in any letter case and with any blanks around it.
void fuzzTypeNames(Bytes input);
// The tokens of an SQL text are parts of it, its sources are names in it, and no text takes long.
void fuzzSqlReader(Bytes input);
// Texts of any encoding become UTF-8, each by itself.
void fuzzTranscoder(Bytes input);
// What is made of any model, above all one with hostile names, has the form of its format.
void fuzzWriters(Bytes input);
