// ExportReader: reads an export record by record and section by section. See record_syntax.h for the bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "bridge/elements/record_place.h"
#include "bridge/reader/record_syntax.h"
#include "bridge/reporting/reporter.h"
#include "host/base/file.h"

namespace silrdm {

// Records of up to this many bytes, less the zero byte that ends them, are read whole.
inline constexpr std::size_t kRecordCapacity = 16384;

class ExportReader {
 public:
  // Reports what is irregular about the bytes, and the progress, to `reporter`, which must outlive the
  // reader.
  explicit ExportReader(Reporter& reporter) : reporter_(reporter) {}

  // Throws VornException when the file cannot be opened.
  void open(const VornString& path, bool asText);
  const VornFile& getFile() const { return file_; }

  void beginSection(int section) { place_ = {section, 0, file_.getPosition()}; }

  // Reads one record, without the byte that ended it, into `buffer`, and ends it with a zero byte. `capacity`
  // is the size of the buffer, at least 1: of a longer record the first `capacity` - 1 bytes are kept and
  // "Line too long" is logged. Returns whether the section goes on after the record; it ends with the
  // section's or the file's last one.
  bool readRecord(char* buffer, std::size_t capacity);

  // The same into the reader's own buffer, which keeps the record until the next one is read.
  bool readRecord() { return readRecord(buffer_, sizeof buffer_); }
  char* getRecord() { return buffer_; }

  // Reads past the rest of the section, which ends with the first FS, in a text or not, or with the file.
  // Throws SILRDM_I_BAD_FILE_FORMAT when the file has ended already and `allowEndOfFile` is false.
  void skipSection(bool allowEndOfFile);

  // Reads to the end of the file and reports bytes after the last section. They look like an export when they
  // have its number of sections, the last of which may be missing.
  void skipRest();

  // Of the record that was read last.
  const RecordPlace& getPlace() const { return place_; }
  std::size_t getLength() const { return length_; }  // more than the text's where a zero byte cuts that
  bool isTooLong() const { return isTooLong_; }      // its end did not fit into the buffer

  // The records with something in them.
  const CountBySection& getRecordCounts() const { return recordCounts_; }

  // " inside the text that begins at byte 190, section 60, record 1" if the file ended in a text, or nothing.
  std::string describeOpenText() const;

  Reporter& getReporter() { return reporter_; }

 private:
  // A text that is never closed.
  struct OpenText {
    RecordPlace record;
    std::size_t offset = 0;  // of the STX
  };

  bool readBytes(char* buffer, std::size_t capacity);
  void skipReportingTexts();
  void reportUncut(Irregularity kind, std::string_view record, const VornString& value = {});
  void reportOpenText(const OpenText& text, std::string_view record);
  void reportLineFeed(std::string_view record);

  Reporter& reporter_;
  VornFile file_;
  RecordPlace place_;
  std::size_t length_ = 0;
  bool isTooLong_ = false;
  bool hasReportedLineFeed_ = false;
  CountBySection recordCounts_{};
  std::optional<OpenText> openText_;  // the one that was open when the file ended in a record
  char buffer_[kRecordCapacity];
};

}  // namespace silrdm
