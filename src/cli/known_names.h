// Other names that users know formats and dialects by.
#pragma once

#include <string>

namespace cli {

// The name of the format that `word` means: its name or an extension of its files ("md"), in any letter case.
// Returns `word` unchanged where it means none.
std::string toFormatName(const std::string& word);

// The name of the SQL dialect that `word` means: its name or another usual name of its database ("postgres",
// "mssql"), in any letter case. Returns `word` unchanged where it means none.
std::string toDialectName(const std::string& word);

// Why a file called `path` cannot be an output, with the next step, where its extension is that of a
// well-known format that is not written; otherwise empty.
std::string explainForeignFormat(const std::string& path);

}  // namespace cli
