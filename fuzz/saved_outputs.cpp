#include "saved_outputs.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "host/base/output_file.h"
#include "host/base/unicode.h"
#include "host/metamodel/store_model.h"
#include "host/writers/common/dialects.h"
#include "host/writers/common/output_format.h"
#include "host/writers/formats.h"
#include "saved_model.h"

namespace {

// What encloses texts in a format.
struct Quoting {
  std::string_view quotes;        // each with the one that closes it
  std::string_view escapes = {};  // those in which a backslash takes the next byte's meaning
  bool hasSqlComments = false;    // "--" up to the line's end, and from "/*" to "*/"
};

// The text without what stands in quotes and comments, quotes doubled inside included. Requires that nothing
// is left open.
std::string withoutQuoted(std::string_view text, const Quoting& quoting) {
  std::string rest;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t quote = quoting.quotes.find(text[i]);
    if (quoting.hasSqlComments && text.substr(i).starts_with("--")) {
      i = std::min(text.find('\n', i), text.size());
      rest += '\n';
    } else if (quoting.hasSqlComments && text.substr(i).starts_with("/*")) {
      const std::size_t end = text.find("*/", i + 2);
      require(end != std::string_view::npos, "a comment is not closed", text.substr(i));
      require(text.substr(i, end - i).find('\n') == std::string_view::npos, "a comment over lines",
              text.substr(i));
      i = end + 1;
    } else if (quote == std::string_view::npos || quote % 2 != 0) {
      rest += text[i];
    } else {
      const std::size_t start = i;
      const bool escapes = quoting.escapes.find(text[i]) != std::string_view::npos;
      for (++i; i < text.size() && (text[i] != quoting.quotes[quote + 1] || text.substr(i, 2) == "]]"); ++i) {
        i += static_cast<std::size_t>((escapes && text[i] == '\\') || text.substr(i, 2) == "]]");
      }
      require(i < text.size(), "a quote is not closed", text.substr(start));
    }
  }
  return rest;
}

void checkPairs(std::string_view text, char open, char close) {
  int depth = 0;
  for (const char byte : text) {
    depth += byte == open ? 1 : byte == close ? -1 : 0;
    require(depth >= 0, "something is closed that was not open", text);
  }
  require(depth == 0, "something is not closed", text);
}

// What a client that knows nothing of literals takes for a statement's end or for its own: nothing but the
// ends of whole statements, wherever it looks.
void checkSqlLines(std::string_view text, const Quoting& quoting, const SqlDialect& dialect) {
  constexpr std::string_view kOwn = ".#@!\\";
  const bool endsAtLines = dialect.id == DialectId::oracle || dialect.id == DialectId::db2;
  std::string statement;
  std::istringstream lines{std::string(text)};
  for (std::string line; endsAtLines && std::getline(lines, line);) {
    const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
    const bool isComment = line.substr(start).starts_with("--");
    require(start == line.size() || kOwn.find(line[start]) == std::string_view::npos, "a client's line",
            line);
    require(line != "/" && line != "GO" && line.find('\r') == std::string::npos, "a client's line", line);
    const bool isEnd = line.find_last_not_of(' ') == line.rfind(';') && line.find(';') != std::string::npos;
    require(!isEnd || !isComment, "a comment ends in a semicolon", line);
    statement += line + '\n';
    if (isEnd) {
      withoutQuoted(statement, quoting);
      statement.clear();
    }
  }
  require(dialect.variableMark.empty() || text.find(dialect.variableMark) == std::string_view::npos,
          "a variable of the client", text);
}

// Nothing but the statements of a script stands outside of quotes and comments.
void checkSql(std::string_view text, const SqlDialect& dialect) {
  constexpr std::string_view kBeginnings[] = {"CREATE SCHEMA ",
                                              "CREATE TABLE ",
                                              "CREATE UNIQUE INDEX ",
                                              "CREATE INDEX ",
                                              "CREATE SYNONYM ",
                                              "CREATE ALIAS ",
                                              "CREATE VIEW ",
                                              "ALTER TABLE ",
                                              "COMMENT ON ",
                                              "EXEC sp_addextendedproperty ",
                                              "SET ",
                                              "USE ",
                                              "ALTER SESSION SET "};
  const std::string_view quotes = dialect.name == "sqlserver" ? "''\"\"[]" : "''\"\"``";
  const Quoting quoting{quotes, dialect.escapesBackslash ? "'\"" : "", true};
  std::string code = withoutQuoted(text, quoting);
  checkSqlLines(text, quoting, dialect);
  if (constexpr std::string_view kCommand = "SET DEFINE OFF"; dialect.name == "oracle") {
    code.erase(code.find(kCommand), kCommand.size());
  }
  require(code.find('\\') == std::string::npos, "a backslash outside of quotes", code);
  for (std::string_view rest = code; !rest.empty();) {
    std::string_view statement = rest.substr(0, rest.find(';'));
    rest.remove_prefix(std::min(statement.size() + 1, rest.size()));
    statement.remove_prefix(std::min(statement.find_first_not_of("\n "), statement.size()));
    while (statement.starts_with("GO\n")) {
      statement.remove_prefix(std::min(statement.find_first_not_of("\n ", 2), statement.size()));
    }
    checkPairs(statement, '(', ')');
    require(statement.empty() || statement == "GO" ||
                std::ranges::any_of(kBeginnings, [&](auto w) { return statement.starts_with(w); }),
            "something stands between statements", statement);
  }
}

void checkDbml(std::string_view text) {
  checkPairs(withoutQuoted(text, {"''\"\"", "'\""}), '{', '}');
}

// '<' and '>' stand for themselves only in the tags of labels, but for the arrows.
void checkDot(std::string_view text) {
  std::string tags;
  for (const char byte : withoutQuoted(text, {"\"\""})) {
    tags += byte;
    tags.resize(tags.size() - (tags.ends_with(" -> ") ? 4 : 0));
  }
  checkPairs(tags, '<', '>');
}

void checkMermaid(const std::string& text) {
  require(text.starts_with("erDiagram\n") || text.starts_with("---\ntitle: \""), "no diagram", text);
  std::istringstream lines(text.substr(text.find("erDiagram\n") + 10));
  for (std::string line; std::getline(lines, line);) {
    require(std::ranges::count(line, '"') % 2 == 0, "a quote is not closed", line);
    require(line.starts_with("  "), "a line of something else", line);
  }
}

void checkMarkdown(const std::string& text) {
  std::string fence;  // of the block of code
  std::ptrdiff_t columns = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!fence.empty() || line.starts_with("```")) {
      fence = fence.empty() ? line.substr(0, line.find_first_not_of('`')) : line == fence ? "" : fence;
      continue;
    }
    std::ptrdiff_t bars = 0;
    for (std::size_t i = 0; line.starts_with('|') && i < line.size(); i += line[i] == '\\' ? 2 : 1) {
      bars += static_cast<int>(line[i] == '|');
    }
    require(bars == columns || columns == 0 || bars == 0, "a row with other cells than the head", line);
    columns = bars;
  }
  require(fence.empty(), "a block of code is not closed", text);
}

void checkOutput(const std::string& text, const VornOutputFormat& format, const SqlDialect& dialect) {
  const std::string_view name = format.name.view();
  require(isUtf8(text), "no UTF-8", text);
  require(std::ranges::none_of(text, [](char c) { return c >= 0 && c < ' ' && c != '\n'; }),
          "a control character", text);
  if (name == "json") {
    const SavedModel model(text);
    for (const std::string& problem : model.getProblems()) {
      require(false, problem, text);
    }
  } else if (name == "sql") {
    checkSql(text, dialect);
  } else if (name == "dbml") {
    checkDbml(text);
  } else if (name == "dot") {
    checkDot(text);
  } else if (name == "mermaid") {
    checkMermaid(text);
  } else if (name == "markdown") {
    checkMarkdown(text);
  }
}

}  // namespace

std::string writeToText(VornStoreModel& model, const VornOutputFormat& format) {
  static const std::string path =
      (std::filesystem::temp_directory_path() / ("vorn-fuzz-" + std::to_string(::getpid()))).string();
  QuietLog log;
  const auto formats = getModelFormats();
  const auto writer = std::ranges::find(formats, format.name.view(), &VornModelFormat::name);
  VornOutputFile file(path);
  writer->write(model, format, file, log);
  file.commit();
  return readAll(path);
}

VornOutputFormat takeFormat(Bytes& bytes) {
  const std::uint8_t flags = bytes.take();
  VornOutputFormat format;
  format.dialect = VornString(bytes.choose(getSqlDialects()).name);
  format.logicalNames = (flags & 1U) != 0;
  format.quoteAll = (flags & 2U) != 0;
  format.everyView = (flags & 4U) != 0;
  return format;
}

void checkEveryOutput(VornStoreModel& model, VornOutputFormat format) {
  for (const VornModelFormat& each : getModelFormats()) {
    format.name = VornString(each.name);
    checkOutput(writeToText(model, format), format, getSqlDialect(model, format.dialect.view()));
  }
}
