#include "host/writers/common/dialects.h"

#include <algorithm>
#include <array>

#include "host/base/text.h"
#include "host/metamodel/store_model.h"
#include "host/writers/common/texts.h"

namespace {

using Unit = NameRules::Unit;
constexpr std::uint8_t kRelations = NameRules::relations;
constexpr std::uint8_t kIndexes = NameRules::indexes;
constexpr std::uint8_t kConstraints = NameRules::constraints;
constexpr std::uint8_t kOwnIndexes = NameRules::ownIndexes;

constexpr std::uint8_t bits(auto... actions) {
  return static_cast<std::uint8_t>(((1U << actions) | ...));
}
using Action = VornReferentialActionType;
constexpr std::uint8_t kEveryAction =
    bits(Action::none, Action::cascade, Action::restrict, Action::setNull, Action::setDefault);

constexpr SqlDialect kDialects[] = {
    {.name = "ansi",
     .system = "ANSI SQL",
     .versions = "as far as databases share it",
     .createSchema = "CREATE SCHEMA {};",
     .useSchema = "SET SCHEMA {};",
     .drops = {.view = "DROP VIEW IF EXISTS {};", .table = "DROP TABLE IF EXISTS {} CASCADE;"},
     .notIndexed = "|CHARACTER LARGE|NATIONAL CHARACTER LARGE|BINARY LARGE|XML|",
     .names = {.limit = 128,
               .unit = Unit::characters,
               .indexScopes = kRelations,
               .keyScopes = kRelations | kConstraints},
     .tableColumns = SIZE_MAX,
     .keyColumns = SIZE_MAX,
     .id = DialectId::ansi,
     .folding = CaseFolding::upper,
     .comments = CommentStyle::none,
     .onDelete = kEveryAction,
     .onUpdate = kEveryAction,
     .takesTwinKeys = false},
    {.name = "postgresql",
     .system = "PostgreSQL",
     .versions = "10 and later",
     .prologue = "SET client_encoding = 'UTF8';\nSET standard_conforming_strings = on;",
     .createSchema = "CREATE SCHEMA IF NOT EXISTS {};",
     .useSchema = "SET search_path TO {}, public;",
     .begin = "BEGIN;",
     .commit = "COMMIT;",
     .drops = {.view = "DROP VIEW IF EXISTS {} CASCADE;", .table = "DROP TABLE IF EXISTS {} CASCADE;"},
     .notIndexed = "|XML|",
     // A key's index is named like the key and stands among the tables.
     .names = {.limit = 63,
               .indexScopes = kRelations,
               .keyScopes = kRelations,
               .foreignScopes = 0,
               .homeSchema = "public",
               .schemaPrefix = "pg_",
               .schemas = " information_schema ",
               .columns = " tableoid xmin cmin xmax cmax ctid "},
     .tableColumns = 1600,
     .keyColumns = 32,
     .id = DialectId::postgresql,
     .folding = CaseFolding::lower,
     .comments = CommentStyle::statement,
     .onDelete = kEveryAction,
     .onUpdate = kEveryAction,
     .takesEmptyTables = true,
     .takesLines = true,
     .takesTwinKeys = false,
     .takesRepeatedColumns = true},
    {.name = "sqlite",
     .system = "SQLite",
     .versions = "3",
     .begin = "BEGIN;",
     .commit = "COMMIT;",
     .drops = {.before = "PRAGMA foreign_keys = OFF;",
               .view = "DROP VIEW IF EXISTS {};",
               .table = "DROP TABLE IF EXISTS {};"},
     .notIndexed = "",
     // It has no limit, but what is repeated needs one.
     .names = {.limit = 128,
               .hasSchemas = false,
               .indexScopes = kRelations,
               .foreignScopes = 0,
               .relationPrefix = "sqlite_"},
     .tableColumns = 2000,
     .keyColumns = 2000,
     .id = DialectId::sqlite,
     .folding = CaseFolding::ignored,
     .comments = CommentStyle::none,
     .onDelete = kEveryAction,
     .onUpdate = kEveryAction,
     .addsConstraintsLater = false,
     .takesLines = true,
     .takesTwinKeys = false,
     .takesRepeatedColumns = true},
    {.name = "mysql",
     .system = "MySQL",
     .versions = "8 and later",
     .prologue = "SET NAMES utf8mb4;",
     .createSchema = "CREATE SCHEMA IF NOT EXISTS {};",
     .useSchema = "USE {};",
     .drops = {.before = "SET FOREIGN_KEY_CHECKS = 0;",
               .view = "DROP VIEW IF EXISTS {};",
               .table = "DROP TABLE IF EXISTS {};",
               .after = "SET FOREIGN_KEY_CHECKS = 1;"},
     .notIndexed = "|LONGTEXT|LONGBLOB|JSON|",
     // A key is known by its index; a foreign key makes one of its name.
     .names = {.limit = 64,
               .unit = Unit::characters,
               .indexScopes = kOwnIndexes,
               .keyScopes = kOwnIndexes,
               .foreignScopes = kConstraints | kOwnIndexes,
               .takesAllPlanes = false,
               .schemas = " information_schema mysql performance_schema sys ",
               .indexNames = " primary ",
               .fileNameLimit = 235},
     .commentLimit = 1024,
     .tableColumns = 1017,
     .keyColumns = 16,
     .tableIndexes = 64,
     .keyBytes = 3072,
     .rowBytes = 65535,
     .inlineBytes = 8100,
     .id = DialectId::mysql,
     .openQuote = '`',
     .closeQuote = '`',
     .folding = CaseFolding::ignored,
     .comments = CommentStyle::clause,
     .onDelete = bits(Action::none, Action::cascade, Action::restrict, Action::setNull),
     .onUpdate = bits(Action::none, Action::cascade, Action::restrict, Action::setNull),
     .escapesBackslash = true,
     .takesLines = true,
     .resolvesParents = false},
    {.name = "sqlserver",
     .system = "Microsoft SQL Server",
     .versions = "2012 and later",
     // Indexes with a filter want it on, which not all clients have it.
     .prologue = "SET QUOTED_IDENTIFIER ON;",
     .createSchema = "CREATE SCHEMA {};",
     .standingSchemas = " dbo ",
     .createSynonym = "CREATE SYNONYM ",
     .batchEnd = "GO",
     .variableMark = "$(",
     // The client must stop at the first error, as sqlcmd -b does: later batches would be in no transaction.
     .begin = "SET XACT_ABORT ON;\nBEGIN TRANSACTION;\nGO",
     .commit = "COMMIT TRANSACTION;\nGO",
     .drops = {.view = "IF OBJECT_ID(N'{literal}', N'V') IS NOT NULL DROP VIEW {};",
               .foreignKey =
                   "IF OBJECT_ID(N'{literal}', N'F') IS NOT NULL ALTER TABLE {table} DROP CONSTRAINT {};",
               .synonym = "IF OBJECT_ID(N'{literal}', N'SN') IS NOT NULL DROP SYNONYM {};",
               .table = "IF OBJECT_ID(N'{literal}', N'U') IS NOT NULL DROP TABLE {};"},
     .notIndexed = "|VARCHAR(MAX)|NVARCHAR(MAX)|VARBINARY(MAX)|XML|SQL_VARIANT|",
     // Constraints are objects like tables; a key's index is named like the key.
     .names = {.limit = 128,
               .unit = Unit::utf16,
               .indexScopes = kOwnIndexes,
               .keyScopes = kRelations | kOwnIndexes,
               .foreignScopes = kRelations,
               .variableMark = "$(",
               .relationPrefix = "#",
               .keyPrefix = "#",
               .schemas =
                   " sys information_schema guest db_owner db_accessadmin db_securityadmin db_ddladmin "
                   "db_backupoperator db_datareader db_datawriter db_denydatareader db_denydatawriter "},
     .commentLimit = 3750,
     .tableColumns = 1024,
     .keyColumns = 16,
     .keyBytes = 900,
     .rowBytes = 8052,  // of 8060, the rest of which is the row's own
     .id = DialectId::sqlserver,
     .openQuote = '[',
     .closeQuote = ']',
     .folding = CaseFolding::ignored,
     .comments = CommentStyle::extendedProperty,
     .onDelete = bits(Action::none, Action::cascade, Action::setNull, Action::setDefault),
     .onUpdate = bits(Action::none, Action::cascade, Action::setNull, Action::setDefault),
     .nullsInKeys = NullsInKeys::filteredIndex,
     .cascadePaths = CascadePaths::single},
    {.name = "oracle",
     .system = "Oracle Database",
     .versions = "12.2 and later",
     .prologue = "SET DEFINE OFF",
     // No CREATE SCHEMA: a schema is a user's, and comes with the user.
     .useSchema = "ALTER SESSION SET CURRENT_SCHEMA = {};",
     .createSynonym = "CREATE SYNONYM ",
     .drops = {.view = "BEGIN EXECUTE IMMEDIATE 'DROP VIEW {literal}'; EXCEPTION WHEN OTHERS THEN "
                       "IF SQLCODE <> -942 THEN RAISE; END IF; END;\n/",
               .synonym = "BEGIN EXECUTE IMMEDIATE 'DROP SYNONYM {literal}'; EXCEPTION WHEN OTHERS THEN "
                          "IF SQLCODE <> -1434 THEN RAISE; END IF; END;\n/",
               .table = "BEGIN EXECUTE IMMEDIATE 'DROP TABLE {literal} CASCADE CONSTRAINTS'; EXCEPTION WHEN "
                        "OTHERS THEN "
                        "IF SQLCODE <> -942 THEN RAISE; END IF; END;\n/"},
     .notIndexed = "|CLOB|NCLOB|BLOB|BFILE|XMLTYPE|SYS.ANYDATA|",
     .names = {.limit = 128, .keyScopes = kIndexes | kConstraints, .replaced = "\"", .columns = " rowid "},
     .commentLimit = 4000,
     .tableColumns = 1000,
     .keyColumns = 32,
     .keyBytes = 6398,
     .id = DialectId::oracle,
     .folding = CaseFolding::upper,
     .comments = CommentStyle::statement,
     .onDelete = bits(Action::cascade, Action::setNull),
     .onUpdate = 0,
     .qualifiesIndexes = true,
     .takesTwinKeys = false,
     .takesMirrorKeys = false,
     .takesTwinIndexes = false,
     .takesTwinForeignKeys = false},
    {.name = "db2",
     .system = "Db2",
     .versions = "11.1 and later",
     .createSchema = "CREATE SCHEMA {};",
     .useSchema = "SET SCHEMA {};",
     .createSynonym = "CREATE ALIAS ",
     .begin = "UPDATE COMMAND OPTIONS USING C OFF S ON;",
     .commit = "COMMIT;",
     .drops = {.before = "--#SET TERMINATOR @",
               .view = "BEGIN DECLARE CONTINUE HANDLER FOR SQLSTATE '42704' BEGIN END; EXECUTE IMMEDIATE "
                       "'DROP VIEW {literal}'; END@",
               .synonym = "BEGIN DECLARE CONTINUE HANDLER FOR SQLSTATE '42704' BEGIN END; EXECUTE IMMEDIATE "
                          "'DROP ALIAS {literal}'; END@",
               .table = "BEGIN DECLARE CONTINUE HANDLER FOR SQLSTATE '42704' BEGIN END; EXECUTE IMMEDIATE "
                        "'DROP TABLE {literal}'; END@",
               .after = "--#SET TERMINATOR ;"},
     .notIndexed = "|CLOB|DBCLOB|NCLOB|BLOB|XML|",
     .names = {.limit = 128, .keyScopes = kIndexes, .foreignScopes = 0, .schemaPrefix = "sys"},
     .commentLimit = 254,
     .tableColumns = 1012,
     .keyColumns = 64,
     .keyBytes = 1024,
     .id = DialectId::db2,
     .folding = CaseFolding::upper,
     .comments = CommentStyle::statement,
     .onDelete = bits(Action::none, Action::cascade, Action::restrict, Action::setNull),
     .onUpdate = bits(Action::none, Action::restrict),
     .qualifiesIndexes = true,
     .takesTwinKeys = false,
     .takesMirrorKeys = false,
     .takesTwinForeignKeys = false,
     .nullsInKeys = NullsInKeys::uniqueIndex,
     .cascadePaths = CascadePaths::single},
};

// The data stores of a model that have a dialect of their own.
struct StoreDialect {
  std::string_view dataStore;
  std::string_view dialect;
};
constexpr StoreDialect kStoreDialects[] = {
    {"AS_400", "db2"},
    {"DB2_6000", "db2"},
    {"DB2_MVS", "db2"},
    {"DB2_UDB", "db2"},
    {"SQL_DS", "db2"},
    {"ORACLE", "oracle"},
    {"MICROSOFT_SQL_SERVER", "sqlserver"},
};

struct ReservedWord {
  std::string_view word;
  std::string_view dialects;  // with blanks between them
};
constexpr ReservedWord kReservedWords[] = {
#include "host/writers/common/reserved_words.inc"
};
static_assert(std::ranges::is_sorted(kReservedWords, {}, &ReservedWord::word),
              "the table is searched by halves");
constexpr std::size_t kLongestWord =
    std::ranges::max(kReservedWords, {}, [](const ReservedWord& row) { return row.word.size(); }).word.size();

// Which letters a reserved word can end in, a bit each, by its length and its first letter: few other names
// pass.
constexpr auto kLastLetters = [] {
  std::array<std::array<std::uint32_t, 26>, kLongestWord + 1> letters{};
  for (const ReservedWord& row : kReservedWords) {
    letters[row.word.size()][static_cast<std::size_t>(row.word.front() - 'A')] |= 1U
                                                                                  << (row.word.back() & 31);
  }
  return letters;
}();

// `identifier` begins with a letter and is not too long.
bool canBeReserved(std::string_view identifier) {
  const auto first = static_cast<std::size_t>((identifier.front() & 31) - 1);
  return (kLastLetters[identifier.size()][first] & (1U << (identifier.back() & 31))) != 0;
}

bool isReserved(std::string_view identifier, const SqlDialect& dialect) {
  if (identifier.size() > kLongestWord || !canBeReserved(identifier)) {
    return false;
  }
  std::array<char, kLongestWord> upper{};
  std::ranges::transform(identifier, upper.begin(),
                         [](char c) { return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c); });
  const std::string_view word(upper.data(), identifier.size());
  const auto* const found = std::ranges::lower_bound(kReservedWords, word, {}, &ReservedWord::word);
  if (found == std::end(kReservedWords) || found->word != word) {
    return false;
  }
  for (std::size_t place = found->dialects.find(dialect.name); place != std::string_view::npos;
       place = found->dialects.find(dialect.name, place + 1)) {
    const std::size_t end = place + dialect.name.size();
    if ((place == 0 || found->dialects[place - 1] == ' ') &&
        (end == found->dialects.size() || found->dialects[end] == ' ')) {
      return true;
    }
  }
  return false;
}

bool isRegular(std::string_view identifier) {
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  return !identifier.empty() && isLetter(identifier.front()) && std::ranges::all_of(identifier, [&](char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_';
  });
}

}  // namespace

std::span<const SqlDialect> getSqlDialects() {
  return kDialects;
}

const SqlDialect* findSqlDialect(std::string_view name) {
  const auto* const found = std::ranges::find(kDialects, name, &SqlDialect::name);
  return found == std::end(kDialects) ? nullptr : found;
}

const SqlDialect* findSqlDialectOf(const VornStoreModel& model) {
  const auto* const store =
      std::ranges::find(kStoreDialects, model.dataStoreName.view(), &StoreDialect::dataStore);
  return store == std::end(kStoreDialects) ? nullptr : findSqlDialect(store->dialect);
}

bool standsUnquoted(std::string_view identifier, const SqlDialect& dialect) {
  return isRegular(identifier) && !isReserved(identifier, dialect);
}

std::string foldIdentifier(std::string_view name, bool isQuoted, const SqlDialect& dialect) {
  if (dialect.folding == CaseFolding::ignored) {
    return foldCase(name);
  }
  if (isQuoted) {
    return std::string(name);
  }
  return dialect.folding == CaseFolding::upper ? toUpperAscii(name) : foldCase(name);
}

const SqlDialect& getSqlDialect(const VornStoreModel& model, std::string_view name) {
  for (const SqlDialect* dialect : {findSqlDialect(name), findSqlDialectOf(model)}) {
    if (dialect != nullptr) {
      return *dialect;
    }
  }
  return kDialects[0];
}

std::string quoteIdentifier(std::string_view identifier, const SqlDialect& dialect, bool always) {
  if (!always && standsUnquoted(identifier, dialect)) {
    return std::string(identifier);
  }
  std::string quoted(1, dialect.openQuote);
  for (const char c : identifier) {
    quoted += c;
    if (c == dialect.closeQuote) {
      quoted += c;
    }
  }
  quoted += dialect.closeQuote;
  return quoted;
}

std::string separateMarks(std::string_view text, const SqlDialect& dialect) {
  std::string separated(text);
  const std::string_view mark = dialect.variableMark;
  for (std::size_t place = 0; !mark.empty() && (place = separated.find(mark, place)) != std::string::npos;
       place += mark.size()) {
    separated.insert(place + mark.size() - 1, 1, ' ');
  }
  return separated;
}

std::string quoteLiteral(std::string_view text, const SqlDialect& dialect) {
  std::string cleaned;
  if (!isPlain(text)) {
    cleaned = dialect.takesLines ? joinLines(text) : toOneLine(text);
    text = cleaned;
  }
  if (!dialect.variableMark.empty()) {
    cleaned = separateMarks(text, dialect);
    text = cleaned;
  }
  std::string literal = dialect.comments == CommentStyle::extendedProperty ? "N'" : "'";
  for (const char c : text) {
    literal += c;
    if (c == '\'' || (c == '\\' && dialect.escapesBackslash)) {
      literal += c;
    }
  }
  literal += '\'';
  return literal;
}
