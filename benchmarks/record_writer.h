// Records as they stand in an export.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "bridge/reader/record_syntax.h"

// One record, field by field in ascending order; the fields that are left out stay empty.
class RecordWriter {
 public:
  RecordWriter(std::string& out, int fieldCount) : out_(out), fieldCount_(fieldCount) {}
  RecordWriter(const RecordWriter&) = delete;
  RecordWriter& operator=(const RecordWriter&) = delete;
  ~RecordWriter() { moveTo(fieldCount_); }

  RecordWriter& plain(int field, std::string_view value) {
    moveTo(field);
    out_ += value;
    return *this;
  }
  RecordWriter& text(int field, std::string_view value) {
    moveTo(field);
    ((out_ += silrdm::control::kStx) += value) += silrdm::control::kEtx;
    return *this;
  }
  RecordWriter& number(int field, std::size_t value) { return plain(field, std::to_string(value)); }
  RecordWriter& identifier(int field, std::uint32_t value) {
    std::array<char, 8> digits{};
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, value /= 10) {
      *digit = static_cast<char>('0' + value % 10);
    }
    return plain(field, {digits.data(), digits.size()});
  }

 private:
  void moveTo(int field) {
    out_.append(static_cast<std::size_t>(field - field_), silrdm::control::kTab);
    field_ = field;
  }

  std::string& out_;
  int fieldCount_;
  int field_ = 1;
};
