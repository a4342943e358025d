#include <algorithm>
#include <bit>
#include <vector>

#include "bridge/pipeline/sections.h"
#include "bridge/reader/export_reader.h"
#include "support.h"
#include "targets.h"

namespace {

namespace control = silrdm::control;

std::string_view takeUpTo(std::string_view& rest, std::size_t end) {
  const std::string_view taken = rest.substr(0, end);
  rest.remove_prefix(std::min(taken.size() + 1, rest.size()));
  return taken;
}

struct PlainRecord {
  std::string_view bytes;
  bool isLast;  // of its section
};

PlainRecord takeRecord(std::string_view& rest) {
  bool inText = false;
  std::size_t end = 0;
  for (; end < rest.size(); ++end) {
    const char byte = rest[end];
    if (!inText && (byte == control::kCr || byte == control::kFs)) {
      break;
    }
    inText = byte == control::kStx || (inText && byte != control::kEtx);
  }
  const bool isLast = end == rest.size() || rest[end] == control::kFs;
  return {takeUpTo(rest, end), isLast};
}

std::vector<std::string_view> cutFields(std::string_view record) {
  record = record.substr(0, record.find('\0'));
  std::vector<std::string_view> fields;
  while (!record.empty()) {
    std::string_view field = takeUpTo(record, record.find(control::kTab));
    field.remove_prefix(field.rfind(control::kStx) + 1);
    fields.push_back(field.substr(0, field.find(control::kEtx)));
  }
  return fields;
}

// Reads one record; true when it is the last of its section. `tooLong` counts those that are cut.
bool readOne(silrdm::ExportReader& reader, std::string_view& rest, std::vector<char>& buffer,
             std::size_t& tooLong) {
  const PlainRecord record = takeRecord(rest);
  require(reader.readRecord(buffer.data(), buffer.size()) != record.isLast, "goes on as the file does");
  tooLong += static_cast<std::size_t>(record.bytes.size() >= buffer.size());
  char* cursor = buffer.data();
  for (const std::string_view field : cutFields(record.bytes.substr(0, buffer.size() - 1))) {
    require(silrdm::nextField(cursor) == field, "the field is another", field);
  }
  for (int behind = 0; behind < 3; ++behind) {
    require(*silrdm::nextField(cursor) == '\0', "there is something behind the last field", record.bytes);
  }
  return record.isLast;
}

}  // namespace

void fuzzFieldReader(Bytes input) {
  constexpr std::size_t kCapacities[] = {silrdm::kRecordCapacity, 1, 2, 7, 100};
  // The memory behind the record is checked, too.
  std::vector<char> buffer(input.choose(kCapacities));
  std::uint8_t skipped = input.take();  // a bit for each section, over and over
  std::string_view rest = input.rest();
  const std::size_t size = rest.size();
  QuietLog log;
  silrdm::Reporter reporter(log, silrdm::nameOfSection);
  silrdm::ExportReader reader(reporter);
  reader.open(putIntoFile(rest), false);
  std::size_t tooLong = 0;
  for (; !rest.empty(); skipped = std::rotr(skipped, 1)) {
    reader.beginSection(1);
    if ((skipped & 1U) != 0) {
      reader.skipSection(false);
      takeUpTo(rest, rest.find(control::kFs));
    } else {
      while (!readOne(reader, rest, buffer, tooLong)) {
      }
    }
    require(reader.getFile().getPosition() == size - rest.size(), "a section ends in another place");
  }
  require(log.getCount(VornSeverity::warning) == tooLong, "one warning for each record that is too long");
}
