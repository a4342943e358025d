#include "bridge/inspection/export_repair.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "bridge/inspection/export_inspection.h"
#include "bridge/inspection/export_scanner.h"
#include "host/encoding/unicode_form.h"
#include "host/services/foreign_content.h"

namespace silrdm {

namespace {

constexpr char kLf = 10;

// "1 line end", "2 line ends"
std::string count(std::size_t number, const std::string& what) {
  return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

// Where an export ends, and in which section.
struct Extent {
  std::size_t size = 0;
  std::size_t section = 1;

  // Only the last section may be missing.
  bool isWhole(std::size_t available) const {
    return section >= kSections.size() || (section == kSections.size() - 1 && size < available);
  }
};

Extent measureExport(std::string_view bytes) {
  ExportScanner scanner;
  std::size_t lastSectionStart = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::size_t section = scanner.getSection();
    scanner.take(bytes[i]);
    if (scanner.isPastEnd()) {
      return {i + 1, scanner.getSection()};
    }
    if (scanner.getSection() != section) {
      lastSectionStart = i + 1;
    }
  }
  return {lastSectionStart, scanner.getSection()};
}

// The repair of one export, step by step.
class Repair {
 public:
  Repair(std::string bytes, std::string name) : name_(std::move(name)) { repaired_.bytes = std::move(bytes); }

  VornRepairedInput run() {
    makeUtf8();
    if (repaired_.obstacle.empty()) {
      cutOffRest();
      mendLineEnds();
      check();
    }
    return std::move(repaired_);
  }

 private:
  void makeUtf8() {
    const VornUnicodeForm form = detectUnicodeForm(repaired_.bytes);
    if (form == VornUnicodeForm::none) {
      return;
    }
    std::optional<std::string> utf8 = convertToUtf8(repaired_.bytes, form);
    if (!utf8) {
      repaired_.obstacle = "'" + name_ + "' is not wholly valid " + std::string(getName(form)) + ".";
      return;
    }
    if (isWide(form)) {
      const auto isStart = [](char byte) { return (byte & 0xC0) != 0x80; };
      const auto characters = static_cast<std::size_t>(std::ranges::count_if(*utf8, isStart));
      addStep("Converted " + count(characters, "character") + " from " + std::string(getName(form)) +
              " to UTF-8.");
    } else {
      addStep("Removed " + count((repaired_.bytes.size() - utf8->size()) / 3, "byte order mark") + ".");
    }
    repaired_.bytes = std::move(*utf8);
  }

  void cutOffRest() {
    const Extent extent = measureExport(repaired_.bytes);
    if (extent.section <= kSections.size() || extent.size == repaired_.bytes.size()) {
      return;
    }
    const std::string_view rest = std::string_view(repaired_.bytes).substr(extent.size);
    const bool isExport = measureExport(rest).isWhole(rest.size());
    addStep("Cut off " + count(rest.size(), "byte") + " after section " + std::to_string(kSections.size()) +
            (isExport ? ", which are another export: save it as a separate file to import it." : "."));
    repaired_.bytes.resize(extent.size);
  }

  void mendLineEnds() {
    ExportInspector inspector;
    inspector.look(repaired_.bytes);
    const bool endsWithLf = inspector.endsRecordsWithLf();
    std::string mended;
    mended.reserve(repaired_.bytes.size());
    ExportScanner scanner;
    std::size_t changed = 0;
    bool isBehindCr = false;  // outside texts
    for (const char byte : repaired_.bytes) {
      const bool isLf = byte == kLf && !scanner.isInText();
      const bool isSuperfluous = isLf && isBehindCr;
      if (!isSuperfluous) {
        mended += isLf && endsWithLf ? control::kCr : byte;
        isBehindCr = byte == control::kCr && !scanner.isInText();
      }
      changed += static_cast<std::size_t>(isSuperfluous || (isLf && endsWithLf));
      scanner.take(byte);
    }
    if (changed > 0) {
      addStep("Turned " + count(changed, "line end") + " from " + (endsWithLf ? "LF" : "CR LF") +
              " into CR; those inside texts are kept.");
      repaired_.bytes = std::move(mended);
    }
  }

  // Fails if an import would refuse the result or another repair would change it.
  void check() {
    VornForeignContentInspector inspector;
    inspector.look(repaired_.bytes);
    const Extent extent = measureExport(repaired_.bytes);
    if (const std::string problem = inspector.finish(name_).problem; !problem.empty()) {
      repaired_.obstacle = problem;
    } else if (detectUnicodeForm(repaired_.bytes) != VornUnicodeForm::none) {
      repaired_.obstacle = "'" + name_ + "' was converted to Unicode more than once.";
    } else if (!extent.isWhole(repaired_.bytes.size())) {
      repaired_.obstacle = "'" + name_ + "' ends in section " + std::to_string(extent.section) + " of " +
                           std::to_string(kSections.size()) + ", so a part of it is missing.";
    }
  }

  void addStep(std::string step) { repaired_.steps.push_back(std::move(step)); }

  std::string name_;
  VornRepairedInput repaired_;
};

}  // namespace

VornRepairedInput repairExport(std::string bytes, const std::string& name) {
  return Repair(std::move(bytes), name).run();
}

}  // namespace silrdm
