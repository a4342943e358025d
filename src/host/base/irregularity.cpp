#include "host/base/irregularity.h"

#include "host/base/log.h"

namespace {

void appendQuoted(std::string& line, std::string_view before, std::string_view text) {
  if (!text.empty()) {
    line.append(before).append("'").append(text).append("'");
  }
}

std::string describeSection(std::string_view name, int number) {
  const std::string section = "section " + std::to_string(number);
  return name.empty() ? section : std::string(name) + " (" + section + ")";
}

}  // namespace

VornDecodedIrregularity::VornDecodedIrregularity(const VornIrregularity& irregularity, const VornLog& log)
    : identifier_(log.decode(irregularity.identifier)),
      name_(log.decode(irregularity.name)),
      value_(log.decode(irregularity.value)),
      decoded_(irregularity) {
  decoded_.identifier = identifier_;
  decoded_.name = name_;
  decoded_.value = value_;
}

std::string describePlace(const VornIrregularity& irregularity) {
  std::string place = describeSection(irregularity.sectionName, irregularity.section);
  if (irregularity.record > 0) {
    place += ", record " + std::to_string(irregularity.record);
  }
  return place + " at byte " + std::to_string(irregularity.offset);
}

std::string describe(const VornIrregularity& irregularity) {
  std::string line(irregularity.kind);
  line += ": " + describePlace(irregularity);
  appendQuoted(line, ", identifier ", irregularity.identifier);
  appendQuoted(line, ", name ", irregularity.name);
  line.append(": wanted ").append(irregularity.wanted);
  appendQuoted(line, ", found ", irregularity.value);
  return line.append("; ").append(irregularity.done);
}

std::string describe(const VornRecordCount& count) {
  return describeSection(count.sectionName, count.section) + ": " + std::to_string(count.read) + " read, " +
         std::to_string(count.kept) + " kept, " + std::to_string(count.dropped) + " dropped";
}
