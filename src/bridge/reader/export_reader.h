// ExportReader reads an export record by record and section by section. record_syntax.h describes the bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "bridge/elements/record_place.h"
#include "bridge/reader/record_syntax.h"
#include "bridge/reporting/reporter.h"
#include "host/base/file.h"

namespace silrdm {

// Size of the record buffer. Longer records are cut; the terminating zero byte is included.
inline constexpr std::size_t kRecordCapacity = 16384;

class ExportReader {
 public:
  // `reporter` must outlive the reader.
  explicit ExportReader(Reporter& reporter) : reporter_(reporter) {}

  // Throws VornException when the file cannot be opened.
  void open(const VornString& path, bool asText);
  const VornFile& getFile() const { return file_; }

  void beginSection(int section) { place_ = {section, 0, file_.getPosition()}; }

  // Reads one record into `buffer`, without its end byte, and adds a zero byte. `capacity` is the size of
  // `buffer`, at least 1; a longer record is cut and "Line too long" is logged. Returns false for the last
  // record of the section or file.
  bool readRecord(char* buffer, std::size_t capacity);

  // Reads one record into the reader's buffer, which keeps it until the next call.
  bool readRecord() { return readRecord(buffer_, sizeof buffer_); }
  char* getRecord() { return buffer_; }

  // Skips the rest of the section up to the first FS, even inside a text, or to the end of the file. Throws
  // SILRDM_I_BAD_FILE_FORMAT if the file has already ended and `allowEndOfFile` is false.
  void skipSection(bool allowEndOfFile);

  // Skips to the end of the file and reports bytes after the last section. They are reported as another
  // export if they have as many sections; the last one may be missing.
  void skipRest();

  // The place of the last record read.
  const RecordPlace& getPlace() const { return place_; }
  std::size_t getLength() const { return length_; }  // of the last record, including bytes after a zero byte
  bool isTooLong() const { return isTooLong_; }      // the last record was cut

  // Counts records that are not empty.
  const CountBySection& getRecordCounts() const { return recordCounts_; }

  // Returns " inside the text that begins at byte 190, section 60, record 1" if the file ended inside a text,
  // otherwise an empty string.
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
  std::optional<OpenText> openText_;  // open at the end of the file
  char buffer_[kRecordCapacity];
};

}  // namespace silrdm
