// What a bridge reports to an observer: each place where it did not import the source unchanged, and what
// became of the records of each section. See VornImportObserver.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// A record that was dropped, or of which something was changed. The texts are those of the source, in its
// encoding, and are there for the length of the call only.
struct VornIrregularity {
  std::string_view kind;         // a word that stays the same from version to version: "other-schema"
  std::string_view warning;      // the code of the warning that follows; empty where none does
  int section = 0;               // by its number in the source, counted from 1
  std::string_view sectionName;  // empty of one that is passed over
  std::size_t record = 0;        // within the section, counted from 1; 0 where it is about none
  std::size_t offset = 0;        // of the record's first byte in the source, counted from 0
  std::string_view identifier;
  std::string_view name;    // empty where the record has none
  std::string_view wanted;  // what was looked for: "table or view"
  std::string_view value;   // what stood there instead, or the identifier that leads nowhere
  std::string_view done;    // what was done: "left out"
  bool dropped = false;     // the record has no object of its own in the model
};

// What became of the records of one section. Those that were read are those kept and those dropped.
struct VornRecordCount {
  int section = 0;
  std::string_view sectionName;
  std::size_t read = 0;
  std::size_t kept = 0;     // as found in the model
  std::size_t dropped = 0;  // as reported
};

class VornLog;

// An irregularity with its texts decoded to UTF-8 by the log.
class VornDecodedIrregularity {
 public:
  VornDecodedIrregularity(const VornIrregularity& irregularity, const VornLog& log);
  VornDecodedIrregularity(const VornDecodedIrregularity&) = delete;
  VornDecodedIrregularity& operator=(const VornDecodedIrregularity&) = delete;
  // Stands as long as this object and the texts of the original that need no decoding.
  const VornIrregularity& get() const { return decoded_; }

 private:
  std::string identifier_, name_, value_;
  VornIrregularity decoded_;
};

// "columns (section 7), record 2 at byte 71"
std::string describePlace(const VornIrregularity& irregularity);
// In one line, for people.
std::string describe(const VornIrregularity& irregularity);
std::string describe(const VornRecordCount& count);
