#include <array>
#include <memory>

#include "bridge/inspection/export_inspection.h"
#include "bridge/inspection/export_repair.h"
#include "host/base/unicode.h"
#include "host/encoding/utf8_tally.h"
#include "host/services/foreign_content.h"
#include "support.h"
#include "targets.h"

namespace {

// What an import would say of these bytes before it reads them, fed in blocks of a size.
std::string findProblem(std::string_view bytes, std::size_t block) {
  VornForeignContentInspector foreign;
  silrdm::ExportInspector ofBridge;
  for (std::size_t i = 0; i < bytes.size(); i += block) {
    foreign.look(bytes.substr(i, block));
    ofBridge.look(bytes.substr(i, block));
  }
  const std::string problem = foreign.finish("x").problem;
  return problem.empty() ? ofBridge.finish("x").problem : problem;
}

void checkTally(std::string_view bytes, std::size_t block) {
  VornUtf8Tally tally(VornUtf8Tally::StopAt::firstInvalid);
  for (std::size_t i = 0; i < bytes.size(); i += block) {
    tally.look(bytes.substr(i, block));
  }
  tally.finish();
  require((tally.getInvalid() == 0) == isUtf8(bytes), "what is valid UTF-8 is another matter", bytes);
  require(tally.getInvalid() > 0 || (tally.getValid() == 0) == isAscii(bytes), "characters are not counted",
          bytes);
}

// An export as the modelling tool writes it, with what the input has in it.
std::string makeSoundExport(Bytes& input) {
  constexpr int kSections = 68;
  constexpr int kMostRecords = 4;
  std::string bytes;
  for (int section = 0; section < kSections; ++section) {
    const int records = input.take() % kMostRecords;
    for (int record = 0; record < records; ++record) {
      bytes += (record > 0 ? "\r1\t" : "1\t");
      const bool isText = input.take() % 2 != 0;
      bytes += isText ? "\x02" : "";
      for (const char byte : input.takeText()) {
        bytes += static_cast<unsigned char>(byte) < ' ' ? ' ' : byte;
      }
      bytes += isText ? "\x03" : "";
    }
    bytes += '\x1C';
  }
  return bytes;
}

void requireRepaired(const std::string& damaged, const std::string& sound, std::size_t steps) {
  const VornRepairedInput repaired = silrdm::repairExport(damaged, "x");
  require(repaired.obstacle.empty(), "there is an obstacle", repaired.obstacle);
  require(repaired.bytes == sound, "the export is not restored", repaired.bytes);
  require(repaired.steps.size() == steps, "other steps were taken", damaged);
}

std::string replaceCr(const std::string& bytes, std::string_view lineEnd) {
  std::string replaced;
  for (const char byte : bytes) {
    replaced += byte == '\r' ? lineEnd : std::string_view(&byte, 1);
  }
  return replaced;
}

// `utf8` is ASCII for the most part, so that no mark is needed.
std::string toUtf16(std::string_view ascii, bool bigEndian) {
  std::string wide;
  for (const char byte : ascii) {
    wide += bigEndian ? std::string{'\0', byte} : std::string{byte, '\0'};
  }
  return wide;
}

}  // namespace

void fuzzInspection(Bytes input) {
  const std::array<std::size_t, 4> kBlocks = {1, 2, 7, 4097};
  const std::size_t block = input.choose(kBlocks);
  const std::string_view bytes = input.rest();
  require(findProblem(bytes, block) == findProblem(bytes, bytes.size() + 1), "blocks make a difference",
          bytes);
  checkTally(bytes, block);
}

void fuzzRepair(Bytes input) {
  const std::string damaged(input.rest());
  const VornRepairedInput repaired = silrdm::repairExport(damaged, "x");
  if (repaired.obstacle.empty()) {
    require(findProblem(repaired.bytes, repaired.bytes.size() + 1).empty(),
            "what is repaired would be refused", repaired.bytes);
    requireRepaired(repaired.bytes, repaired.bytes, 0);
    require(!repaired.steps.empty() || repaired.bytes == damaged, "changed without a word", damaged);
  }

  const std::string sound = makeSoundExport(input);
  require(findProblem(sound, sound.size()).empty(), "a sound export is refused", sound);
  requireRepaired(sound, sound, 0);
  const bool hasCr = sound.find('\r') != std::string::npos;
  requireRepaired(replaceCr(sound, "\n"), sound, hasCr ? 1 : 0);
  requireRepaired(replaceCr(sound, "\r\n"), sound, hasCr ? 1 : 0);
  requireRepaired("\xEF\xBB\xBF" + sound, sound, 1);
  requireRepaired(sound + replaceCr(sound, "\n"), sound, 1);
  if (isAscii(sound)) {
    requireRepaired(toUtf16(sound, true), sound, 1);
    requireRepaired("\xFF\xFE" + toUtf16(replaceCr(sound, "\n"), false), sound, hasCr ? 2 : 1);
  }
}
