#include "cli/import_report.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <filesystem>

#include "host/std/irregularity.h"
#include "host/std/unicode.h"

namespace cli {

namespace {

bool isTextFile(const std::string& path) {
  const std::string extension = std::filesystem::path(path).extension().string();
  return extension == ".txt" || extension == ".md";
}

// One JSON object in one line. Texts of an export may have any encoding: see docs/report.md.
class JsonLine {
 public:
  JsonLine() { json_.StartObject(); }

  JsonLine& add(const char* key, std::string_view text) {
    const std::string utf8 = isUtf8(text) ? std::string(text) : latin1ToUtf8(text);
    json_.Key(key);
    json_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
    return *this;
  }
  JsonLine& add(const char* key, const char* text) { return add(key, std::string_view(text)); }
  JsonLine& add(const char* key, std::size_t number) {
    json_.Key(key);
    json_.Uint64(number);
    return *this;
  }
  JsonLine& add(const char* key, int number) { return add(key, static_cast<std::size_t>(number)); }
  JsonLine& add(const char* key, bool flag) {
    json_.Key(key);
    json_.Bool(flag);
    return *this;
  }

  std::string_view finish() {
    json_.EndObject();
    return {buffer_.GetString(), buffer_.GetSize()};
  }

 private:
  rapidjson::StringBuffer buffer_;
  rapidjson::Writer<rapidjson::StringBuffer> json_{buffer_};
};

}  // namespace

ImportReport::ImportReport(const std::string& path) : file_(path), isText_(isTextFile(path)) {
}

void ImportReport::add(const VornIrregularity& irregularity) {
  if (isText_) {
    writeLine("- " + toPrintableLine(describe(irregularity)));
    return;
  }
  JsonLine line;
  line.add("event", "irregularity")
      .add("kind", irregularity.kind)
      .add("warning", irregularity.warning)
      .add("section", irregularity.section)
      .add("sectionName", irregularity.sectionName)
      .add("record", irregularity.record)
      .add("offset", irregularity.offset)
      .add("identifier", irregularity.identifier)
      .add("name", irregularity.name)
      .add("wanted", irregularity.wanted)
      .add("value", irregularity.value)
      .add("done", irregularity.done)
      .add("dropped", irregularity.dropped);
  writeLine(line.finish());
}

void ImportReport::add(const VornRecordCount& count) {
  if (isText_) {
    writeLine("- " + toPrintableLine(describe(count)));
    return;
  }
  JsonLine line;
  line.add("event", "records")
      .add("section", count.section)
      .add("sectionName", count.sectionName)
      .add("read", count.read)
      .add("kept", count.kept)
      .add("dropped", count.dropped);
  writeLine(line.finish());
}

void ImportReport::writeLine(std::string_view line) {
  file_.write(line.data(), line.size());
  file_.put('\n');
}

}  // namespace cli
