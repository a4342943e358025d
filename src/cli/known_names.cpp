#include "cli/known_names.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iterator>
#include <string_view>

#include "host/writers/common/dialects.h"
#include "host/writers/formats.h"

namespace cli {

namespace {

struct DialectAlias {
  std::string_view alias;
  std::string_view name;
};

constexpr DialectAlias kDialectAliases[] = {
    {"mssql", "sqlserver"}, {"tsql", "sqlserver"}, {"postgres", "postgresql"},
    {"pg", "postgresql"},   {"sqlite3", "sqlite"},
};

constexpr std::string_view kDrawn =
    "Graphviz draws it: save a .dot file, then run dot -T{} model.dot -o model.{}";
constexpr std::string_view kDiagrams = "diagrams are saved as .mmd (Mermaid), .dot (Graphviz) or .dbml";

struct ForeignFormat {
  std::string_view extensions;  // with a blank after each
  std::string_view nextStep;    // {} is the extension
};

constexpr ForeignFormat kForeignFormats[] = {
    {".svg .png .pdf ", kDrawn},
    {".html .htm ", "save a .md file, which other programs turn into HTML"},
    {".puml .plantuml .drawio .vsdx ", kDiagrams},
    {".csv .tsv .xls .xlsx .xml .yaml .yml ", "save a .json file, which other programs can convert"},
};

std::string toLower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

}  // namespace

std::string toFormatName(const std::string& word) {
  const std::string name = toLower(word);
  for (const VornModelFormat& format : getModelFormats()) {
    if (name == format.name || "." + name == format.extension || "." + name == format.otherExtension) {
      return std::string(format.name);
    }
  }
  return word;
}

std::string toDialectName(const std::string& word) {
  std::string name = toLower(word);
  const auto* const alias = std::ranges::find(kDialectAliases, name, &DialectAlias::alias);
  if (alias != std::end(kDialectAliases)) {
    name = alias->name;
  }
  return findSqlDialect(name) == nullptr ? word : name;
}

std::string explainForeignFormat(const std::string& path) {
  const std::string extension = toLower(std::filesystem::path(path).extension().string());
  for (const ForeignFormat& format : kForeignFormats) {
    if (extension.size() > 1 && format.extensions.find(extension + " ") != std::string_view::npos) {
      std::string text(format.nextStep);
      for (std::size_t at = text.find("{}"); at != std::string::npos; at = text.find("{}", at)) {
        text.replace(at, 2, extension.substr(1));
      }
      return "cannot save '" + path + "' as " + extension + "; " + text;
    }
  }
  return "";
}

}  // namespace cli
