#include "export_generator.h"

#include <algorithm>
#include <array>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>

#include "invented_names.h"
#include "model_plan.h"
#include "record_writer.h"

namespace {

enum Native : Identifier { kNumber, kVarchar2, kChar, kDate, kClob, kFloat, kBlob };
constexpr std::array<std::string_view, 7> kNatives = {"NUMBER", "VARCHAR2", "CHAR", "DATE",
                                                      "CLOB",   "FLOAT",    "BLOB"};

struct PlannedDomain {
  Native native;
  std::size_t length;  // 0: none
};
// clang-format off
constexpr std::array<PlannedDomain, 13> kDomains = {{
    {kNumber, 0}, {kNumber, 10}, {kNumber, 19},
    {kVarchar2, 0}, {kVarchar2, 11}, {kVarchar2, 50}, {kVarchar2, 255},
    {kChar, 0}, {kChar, 1}, {kDate, 0}, {kClob, 0}, {kFloat, 0}, {kBlob, 0},
}};
// clang-format on

// What columns are made of: most give a length where their domain has none.
struct ColumnType {
  Identifier domain;  // its place in kDomains
  std::size_t length;
};
constexpr ColumnType kKeyType = {0, 10};
// clang-format off
constexpr std::array<ColumnType, 18> kColumnTypes = {{
    {0, 10}, {1, 10}, {2, 0},
    {3, 255}, {3, 50}, {3, 230}, {3, 8}, {3, 40}, {3, 100}, {4, 11}, {5, 50}, {6, 255},
    {7, 1}, {7, 1}, {8, 1}, {9, 0}, {10, 0}, {11, 0},
}};
// clang-format on

constexpr std::array<std::string_view, 6> kActions = {"",         "NONE",     "CASCADE",
                                                      "RESTRICT", "SET NULL", "SET DEFAULT"};

// The identifiers of what there is once.
constexpr Identifier kSchema = 1;
constexpr Identifier kTarget = 2;
constexpr Identifier kOtherTarget = 3;
constexpr Identifier kFirstUser = 4;
constexpr Identifier kUserCount = 8;
constexpr Identifier kFirstDataType = kFirstUser + kUserCount;
constexpr Identifier kFirstDomain = kFirstDataType + Identifier{kNatives.size()};
constexpr Identifier kFirstOfTables = kFirstDomain + Identifier{kDomains.size()};

class ExportWriter {
 public:
  ExportWriter(std::ostream& out, const ExportShape& shape)
      : out_(out),
        isVaried_(shape.varied),
        random_(shape.seed),
        tables_(planTables(shape.tables, shape.columns, kFirstOfTables, random_)) {}

  void write() {
    for (int position = 1; position <= 68; ++position) {
      firstOfSection_ = true;
      writeSection(position);
      buffer_ += silrdm::control::kFs;
    }
    flush();
  }

 private:
  void writeSection(int position) {
    switch (position) {
      case 4:   // specializations
      case 14:  // common items
        return;
      case 7:
        return forEachTable(&ExportWriter::writeColumns);
      case 11:
        forEachTable(&ExportWriter::writeKeys);
        return forEachTable(&ExportWriter::writeForeignKeys);
      case 12:
        forEachTable(&ExportWriter::writeKeyColumns);
        return forEachTable(&ExportWriter::writeForeignKeyColumns);
      case 17:
        return forEachTable(&ExportWriter::writeRelationships);
      case 24:
        return writeDataTypes();
      case 28:
        return forEachTable(&ExportWriter::writeRoles);
      case 29:
        return writeDomains();
      case 51:
        newRecord(10).text(2, "measure").text(4, "measure");
        return;
      case 53:
        newRecord(19).identifier(2, kSchema).identifier(5, kTarget);
        return;
      case 60:
        return forEachTable(&ExportWriter::writeEntity);
      case 64:
        newRecord(8).identifier(2, kOtherTarget).plain(3, "Sybase").plain(4, "12.5");
        newRecord(8).identifier(2, kTarget).plain(3, "Oracle").plain(4, "10.0");
        return;
      case 65:
        return writeUsers();
      default:
        newRecord(5).number(1, 1).number(2, 2).text(3, "settings of the tool").number(5, 3);
        newRecord(5).number(1, 2).number(2, 2).text(3, "settings of the tool").number(5, 3);
    }
  }

  void forEachTable(void (ExportWriter::*writeRecords)(std::size_t, const PlannedTable&)) {
    for (std::size_t index = 0; index < tables_.size(); ++index) {
      (this->*writeRecords)(index, tables_[index]);
      if (buffer_.size() > kFlushSize) {
        flush();
      }
    }
  }

  // Whether a column of a varied model is of another type than its like.
  bool isOdd() { return isVaried_ && random_.below(4) == 0; }

  void writeColumns(std::size_t /*index*/, const PlannedTable& table) {
    const std::size_t referring = referringColumns(table);
    for (std::size_t column = 0; column < table.columnCount; ++column) {
      const ColumnType& type =
          column < referring && !isOdd() ? kKeyType : kColumnTypes[random_.below(kColumnTypes.size())];
      const std::string name = makeName(table.firstColumnName + column);
      RecordWriter record = newRecord(43);
      record.identifier(1, kSchema).identifier(2, table.column(column)).identifier(3, table.identifier);
      record.text(4, name).number(5, column + 1).identifier(9, kFirstDomain + type.domain).text(17, name);
      if (random_.below(20) == 0) {
        record.text(19, makeSentence());
      }
      if (random_.below(200) == 0) {
        record.text(23, makeSentence());
      }
      record.number(29, type.length).plain(31, column < table.mandatoryCount ? "N" : "Y").number(32, 0);
    }
  }

  // The number of columns, from the first on, among which are those of the primary key and of all references.
  static std::size_t referringColumns(const PlannedTable& table) {
    std::size_t count = table.keys[0].columns.count;
    for (const PlannedReference& reference : table.references) {
      count = std::max(count, reference.columns.first + reference.columns.count);
    }
    return count;
  }

  void writeKeys(std::size_t index, const PlannedTable& table) {
    for (std::size_t number = 0; number < table.keys.size(); ++number) {
      const std::string name = makeName(index) + "_key" + std::to_string(number);
      RecordWriter record = newRecord(17);
      record.identifier(1, kSchema)
          .identifier(2, table.keys[number].identifier)
          .identifier(3, table.identifier);
      record.text(4, name).plain(5, "IDC").number(6, number).text(12, name);
    }
  }

  void writeForeignKeys(std::size_t index, const PlannedTable& table) {
    for (const PlannedReference& reference : table.references) {
      const std::string name = nameReference(index, reference);
      RecordWriter record = newRecord(17);
      record.identifier(1, kSchema).identifier(2, reference.foreignKey()).text(4, name).plain(5, "FKEY");
      record.identifier(7, referencedKey(reference).identifier)
          .identifier(10, reference.parentRole())
          .text(12, name);
    }
  }

  void writeKeyColumns(std::size_t /*index*/, const PlannedTable& table) {
    for (const PlannedKey& key : table.keys) {
      writeCombinationColumns(table, key.identifier, key.columns, nullptr);
    }
  }

  void writeForeignKeyColumns(std::size_t /*index*/, const PlannedTable& table) {
    for (const PlannedReference& reference : table.references) {
      writeCombinationColumns(table, reference.foreignKey(), reference.columns, &referencedKey(reference));
    }
  }

  // Those of a foreign key refer to the columns of `referenced`.
  void writeCombinationColumns(const PlannedTable& table, Identifier combination, ColumnRange columns,
                               const PlannedKey* referenced) {
    for (std::size_t place = 0; place < columns.count; ++place) {
      const auto offset = static_cast<Identifier>(1 + place);
      RecordWriter record = newRecord(13);
      record.identifier(1, kSchema).identifier(2, combination + offset);
      record.identifier(3, table.column(columns.first + place))
          .identifier(4, combination)
          .number(6, place + 1);
      if (referenced != nullptr) {
        record.identifier(7, referenced->identifier + offset);
      }
      record.plain(10, "A-Z");
    }
  }

  void writeRelationships(std::size_t index, const PlannedTable& table) {
    for (const PlannedReference& reference : table.references) {
      const std::string name = nameReference(index, reference);
      newRecord(12).identifier(1, kSchema).identifier(2, reference.relationship).text(3, name).text(6, name);
    }
  }

  void writeRoles(std::size_t /*index*/, const PlannedTable& table) {
    for (const PlannedReference& reference : table.references) {
      const bool optional = reference.columns.first >= table.mandatoryCount;
      newRecord(36)
          .identifier(1, kSchema)
          .identifier(2, reference.parentRole())
          .text(4, "has")
          .identifier(5, reference.relationship)
          .identifier(8, tables_[reference.parent].identifier)
          .identifier(9, reference.childRole())
          .plain(15, "Y")
          .plain(21, isVaried_ ? kActions[random_.below(kActions.size())] : "RESTRICT")
          .plain(23, isVaried_ ? kActions[random_.below(kActions.size())] : "CASCADE")
          .number(25, 1)
          .number(27, optional ? 0 : 1);
      newRecord(36)
          .identifier(1, kSchema)
          .identifier(2, reference.childRole())
          .text(4, "belongs to")
          .identifier(5, reference.relationship)
          .identifier(8, table.identifier)
          .identifier(9, reference.parentRole())
          .plain(15, "N")
          .plain(25, "N")
          .number(27, 0);
    }
  }

  void writeEntity(std::size_t index, const PlannedTable& table) {
    const std::string name = makeName(index);
    RecordWriter record = newRecord(65);
    record.identifier(1, kSchema).identifier(2, table.identifier);
    record.identifier(3, kFirstUser + static_cast<Identifier>(random_.below(kUserCount)));
    record.text(4, name).text(15, name);
    if (random_.below(5) == 0) {
      std::string description = makeSentence();
      (description += silrdm::control::kCr) += makeSentence();
      record.text(16, description);
    }
    record.plain(65, "N");
  }

  void writeDataTypes() {
    for (Identifier index = 0; index < kNatives.size(); ++index) {
      newRecord(12).identifier(2, kFirstDataType + index).identifier(3, kTarget).plain(4, kNatives[index]);
    }
  }

  void writeDomains() {
    for (Identifier index = 0; index < kDomains.size(); ++index) {
      const PlannedDomain& domain = kDomains[index];
      const std::string_view native = kNatives[domain.native];
      RecordWriter record = newRecord(34);
      record.identifier(2, kFirstDomain + index).identifier(3, kTarget).text(4, "D " + std::string(native));
      record.identifier(6, kFirstDataType + domain.native)
          .plain(11, native)
          .number(23, domain.length)
          .number(29, 0);
    }
  }

  void writeUsers() {
    for (Identifier index = 0; index < kUserCount; ++index) {
      newRecord(6).identifier(2, kFirstUser + index).text(3, "owner_" + makeWord(index));
    }
  }

  RecordWriter newRecord(int fieldCount) {
    if (!std::exchange(firstOfSection_, false)) {
      buffer_ += silrdm::control::kCr;
    }
    return {buffer_, fieldCount};
  }

  const PlannedKey& referencedKey(const PlannedReference& reference) const {
    return tables_[reference.parent].keys[0];
  }

  // References to the first table are all called the same, as in models where every table has one.
  std::string nameReference(std::size_t child, const PlannedReference& reference) const {
    return reference.parent == 0 ? "last_changed_by" : makeName(child) + "_" + makeName(reference.parent);
  }

  std::string makeSentence() {
    std::string sentence = makeWord(random_.below(1000));
    for (std::size_t count = 3 + random_.below(10); count > 0; --count) {
      (sentence += ' ') += makeWord(random_.below(1000));
    }
    return sentence += '.';
  }

  void flush() {
    out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
  }

  static constexpr std::size_t kFlushSize = std::size_t{64} * 1024;

  std::ostream& out_;
  std::string buffer_;
  bool isVaried_;
  Random random_;
  std::vector<PlannedTable> tables_;
  bool firstOfSection_ = true;
};

// Counts what is written into it.
class CountingBuffer : public std::streambuf {
 public:
  std::size_t getCount() const { return count_; }

 private:
  std::streamsize xsputn(const char* /*bytes*/, std::streamsize count) override {
    count_ += static_cast<std::size_t>(count);
    return count;
  }
  int_type overflow(int_type byte) override {
    ++count_;
    return traits_type::not_eof(byte);
  }

  std::size_t count_ = 0;
};

}  // namespace

void writeExport(std::ostream& out, const ExportShape& shape) {
  ExportWriter(out, shape).write();
}

std::size_t tablesForSize(std::size_t bytes, const ExportShape& shape) {
  // Tables differ much in size, so a sample tells too little: the whole export is made, and made once more.
  ExportShape attempt = shape;
  attempt.tables = 500;
  for (int round = 0; round < 3; ++round) {
    CountingBuffer counter;
    std::ostream out(&counter);
    writeExport(out, attempt);
    const double scale = static_cast<double>(bytes) / static_cast<double>(counter.getCount());
    attempt.tables =
        std::max<std::size_t>(1, static_cast<std::size_t>(static_cast<double>(attempt.tables) * scale));
  }
  return attempt.tables;
}
