#include "host/writers/sql/client_rules.h"

#include "host/writers/common/dialects.h"

namespace {

// sqlcmd takes some commands with and without a colon, and `GO` with a count.
constexpr ClientRules kSqlcmd = {.client = "sqlcmd",
                                 .words = " GO ED EXIT QUIT RESET ",
                                 .lineEnds = ";\\",
                                 .wordMarks = "$#",
                                 .hasNationalLiterals = true};
constexpr ClientRules kSqlPlus = {.client = "SQL*Plus",
                                  .words = " GO EXIT QUIT HOST RUN ",
                                  .lineEnds = ";-\\",
                                  .wordMarks = "$#",
                                  .hasNationalLiterals = true,
                                  .lineLength = 2400};
constexpr ClientRules kPsql = {
    .client = "psql", .lineEnds = ";\\", .escapesBackslash = true, .readsCommentQuotes = true};
// It takes a line with nothing but GO or / for a semicolon.
constexpr ClientRules kSqlite3 = {
    .client = "sqlite3", .words = " GO ", .lineEnds = ";\\", .readsCommentQuotes = true};
constexpr ClientRules kMysql = {.client = "mysql",
                                .words = " CHARSET CONNECT DELIMITER EDIT PAGER SOURCE SYSTEM TEE USE ",
                                .lineEnds = ";\\",
                                .wordEnds = "DELIMITER",
                                .escapesBackslash = true,
                                .readsCommentQuotes = true};
constexpr ClientRules kDb2Clp = {.client = "the command line processor",
                                 .words = " QUIT TERMINATE ",
                                 .lineEnds = ";\\",
                                 .wordMarks = "$#"};
// Nobody knows what reads standard SQL: all that any client does.
constexpr ClientRules kAny = {.client = "some client",
                              .words = " GO ED EXIT QUIT RESET HOST RUN DELIMITER SOURCE SYSTEM TERMINATE ",
                              .lineEnds = ";-\\",
                              .wordEnds = "DELIMITER",
                              .escapesBackslash = true,
                              .lineLength = 2400};

}  // namespace

const ClientRules& getClientRules(const SqlDialect& dialect) {
  switch (dialect.id) {
    case DialectId::postgresql:
      return kPsql;
    case DialectId::sqlite:
      return kSqlite3;
    case DialectId::mysql:
      return kMysql;
    case DialectId::sqlserver:
      return kSqlcmd;
    case DialectId::oracle:
      return kSqlPlus;
    case DialectId::db2:
      return kDb2Clp;
    case DialectId::ansi:
      break;
  }
  return kAny;
}

std::string toCommentLine(std::string_view line, const SqlDialect& dialect) {
  std::string text = separateMarks(line, dialect);
  const std::size_t last = text.find_last_not_of(' ');
  // PostgreSQL's, SQLite's and MySQL's clients leave comments alone.
  const ClientRules& rules = getClientRules(dialect);
  if (!rules.readsCommentQuotes && last != std::string::npos &&
      rules.lineEnds.find(text[last]) != std::string_view::npos) {
    text += " |";
  }
  return text;
}
