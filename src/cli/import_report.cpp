#include "cli/import_report.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <filesystem>

#include "host/base/irregularity.h"
#include "host/base/unicode.h"
#include "host/writers/markdown/markdown_text.h"

namespace cli {

namespace {

ImportReport::Form getForm(const std::string& path) {
  const std::string extension = std::filesystem::path(path).extension().string();
  return extension == ".md"    ? ImportReport::Form::markdown
         : extension == ".txt" ? ImportReport::Form::text
                               : ImportReport::Form::jsonLines;
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

ImportReport::ImportReport(const std::string& path) : file_(path), form_(getForm(path)) {
  if (form_ == Form::markdown) {
    out_.add("# What the import dropped or changed\n");
  }
}

void ImportReport::add(const VornIrregularity& irregularity) {
  if (form_ == Form::markdown) {
    beginSection(irregularity.section, irregularity.sectionName);
  }
  if (form_ != Form::jsonLines) {
    addItem(describe(irregularity));
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
  out_.add(line.finish(), '\n');
}

void ImportReport::add(const VornRecordCount& count) {
  if (form_ == Form::markdown) {
    addRow(count);
    return;
  }
  if (form_ == Form::text) {
    addItem(describe(count));
    return;
  }
  JsonLine line;
  line.add("event", "records")
      .add("section", count.section)
      .add("sectionName", count.sectionName)
      .add("read", count.read)
      .add("kept", count.kept)
      .add("dropped", count.dropped);
  out_.add(line.finish(), '\n');
}

// The passes meet records of several sections in turns: a section may come again.
void ImportReport::beginSection(int section, std::string_view name) {
  if (section != section_) {
    out_.add("\n## ");
    putMarkdown(out_, name);
    out_.add(" (section ", section, ")\n\n");
    section_ = section;
  }
}

void ImportReport::addItem(const std::string& text) {
  out_.add("- ");
  if (form_ == Form::markdown) {
    putMarkdown(out_, toPrintableLine(text));
  } else {
    out_.add(toPrintableLine(text));
  }
  out_.add('\n');
}

void ImportReport::addRow(const VornRecordCount& count) {
  if (!hasRows_) {
    out_.add(section_ == 0 ? "\nNothing.\n" : "", "\n## Records\n\n| Section | | Read | Kept | Dropped |\n");
    out_.add("|---:|---|---:|---:|---:|\n");
    hasRows_ = true;
  }
  out_.add("| ", count.section, " | ");
  putMarkdown(out_, count.sectionName);
  out_.add(" | ", count.read, " | ", count.kept, " | ", count.dropped, " |\n");
}

}  // namespace cli
