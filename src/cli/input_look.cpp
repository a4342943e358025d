#include "cli/input_look.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>

#include "host/base/exception.h"
#include "host/base/pemo.h"
#include "host/encoding/encodings.h"
#include "host/plugin/dll_interface.h"
#include "host/plugin/input_inspection.h"
#include "host/services/foreign_content.h"
#include "host/services/transcoder.h"

namespace cli {

namespace {

// Whether the bytes can contradict a choice of encoding, and do.
class EncodingCheck {
 public:
  explicit EncodingCheck(const VornEncoding& choice)
      : choice_(choice),
        isUtf8_(choice.converter == "UTF-8"),
        tally_(isUtf8_ ? VornUtf8Tally::StopAt::firstValid : VornUtf8Tally::StopAt::firstInvalid) {}

  static bool canTell(const VornEncoding& choice) {
    return choice.converter == "UTF-8" || isSingleByte(choice);
  }

  void look(std::string_view bytes) { tally_.look(bytes); }

  void warn(VornLog& log) {
    constexpr std::size_t kCertain = 3;
    tally_.finish();
    const std::size_t contradicting = isUtf8_ ? tally_.getInvalid() : tally_.getValid();
    const std::size_t agreeing = isUtf8_ ? tally_.getValid() : tally_.getInvalid();
    if (contradicting >= kCertain && agreeing == 0) {
      const VornMessageLiteral& message = isUtf8_ ? PEMO::ENCODING_IS_NOT_UTF8 : PEMO::ENCODING_IS_UTF8;
      message.log(log, {VornString(choice_.name), VornString(std::to_string(contradicting))});
    }
  }

 private:
  const VornEncoding& choice_;
  bool isUtf8_;
  VornUtf8Tally tally_;
};

// All that looks at the bytes of one file.
class Observers {
 public:
  // `choice` is the encoding that was chosen, or null; `guesses`: evidence of another one is wanted.
  Observers(VornImportBridgeDllInterface& bridge, const VornOption* choice, bool guesses) {
    if (auto* const inspection = dynamic_cast<VornInputInspection*>(&bridge)) {
      ofBridge_ = inspection->makeInspector();
    }
    if (guesses) {
      evidence_.emplace();
    }
    if (choice != nullptr) {
      const VornEncoding& encoding = getEncodingOfChoice(choice->getValue().view());
      if (EncodingCheck::canTell(encoding)) {
        check_.emplace(encoding);
      }
    }
  }

  void look(std::string_view bytes) {
    foreign_.look(bytes);
    if (ofBridge_ != nullptr) {
      ofBridge_->look(bytes);
    }
    if (check_) {
      check_->look(bytes);
    }
    if (evidence_) {
      evidence_->look(bytes);
    }
  }

  // Empty where nothing speaks against an import.
  VornInputFinding findProblem(const std::string& path) {
    VornInputFinding finding = foreign_.finish(path);
    if (finding.problem.empty() && ofBridge_ != nullptr) {
      finding = ofBridge_->finish(path);
    }
    return finding;
  }

  // Warns where the choice is contradicted.
  LikelyEncoding judgeEncoding(VornLog& log) {
    if (check_) {
      check_->warn(log);
    }
    return evidence_ ? evidence_->judge() : LikelyEncoding();
  }

 private:
  VornForeignContentInspector foreign_;
  std::unique_ptr<VornInputInspector> ofBridge_;  // null: the bridge has none
  std::optional<EncodingCheck> check_;
  std::optional<EncodingEvidence> evidence_;
};

// Throws VornException where the file cannot be read on. One that cannot be opened is the bridge's to report.
void readThrough(const std::string& path, Observers& observers) {
  VornFile file{VornString(path)};
  file.open(VornFile::kRead | VornFile::kBinary);
  for (std::string_view ahead = file.peek(); !ahead.empty(); ahead = file.peek()) {
    observers.look(ahead);
    file.skip(ahead.size());
  }
  if (const std::error_code reason = file.getError()) {
    throw PEMO::CANNOT_READ_FILE.makeException({file.getPath(), VornString(reason.message())})
        .withContext(VornString("at byte " + std::to_string(file.getPosition())));
  }
}

void refuse(const VornInputFinding& finding, const std::string& path, VornLog& log) {
  const std::string nextStep = finding.isRepairable
                                   ? "To repair it: vorn repair " + quoteForShell(path) + " -o fixed.txt"
                                   : finding.nextStep;
  const VornException problem =
      PEMO::UNSOUND_INPUT.makeException({VornString(finding.problem), VornString(nextStep)});
  log.write(problem.getSeverity(), problem.getCode(), problem.getText());
}

std::string explain(const LikelyEncoding& likely) {
  const std::string count = std::to_string(likely.letters);
  switch (likely.ground) {
    case EncodingGround::asciiOnly:
      return "That is the default: all bytes are ASCII.";
    case EncodingGround::tooFew:
      return likely.isChoice
                 ? "There are few non-ASCII characters (" + count + "), but all are valid UTF-8."
                 : "That is the default: there are too few non-ASCII bytes to decide (" + count + ").";
    case EncodingGround::validUtf8:
      return "All " + count + " non-ASCII characters are valid UTF-8.";
    case EncodingGround::detector:
      return likely.isChoice
                 ? "The detector's confidence is " + std::to_string(likely.confidence) + " of 100."
                 : "That is the default: imports cannot read what the detector found, " + likely.name;
    case EncodingGround::unreadable:
      break;
  }
  return "That is the default: the export can be read only once.";
}

// Sets the option to what the bytes tell, or the default.
void chooseEncoding(VornOption& option, const LikelyEncoding& likely, VornLog& log) {
  option.setValue(likely.isChoice ? VornString(likely.name) : option.getDefault());
  PEMO::ENCODING_DETECTED.log(log, {option.getValue(), VornString(explain(likely))});
}

}  // namespace

std::string quoteForShell(const std::string& path) {
  const auto isPlain = [](unsigned char byte) {
    return byte >= 0x80 || std::isalnum(byte) != 0 || std::strchr("/._-+,:@%=", byte) != nullptr;
  };
  if (!path.empty() && path.front() != '-' && std::ranges::all_of(path, isPlain)) {
    return path;
  }
  std::string quoted = "'";
  for (const char letter : path) {
    quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
  }
  return quoted + "'";
}

ExitStatus lookAtInput(VornImportBridgeDllInterface& bridge, VornOptionList& options, const InputLook& look,
                       VornLog& log, LikelyEncoding* likely) {
  const std::string path(options.getValue("File").view());
  VornOption* const encoding = options.get("Encoding");
  LikelyEncoding guess;
  std::error_code notThere;
  if (path != VornFile::kStandardInput && std::filesystem::is_regular_file(path, notThere)) {
    Observers observers(bridge, look.detectsEncoding ? nullptr : encoding,
                        look.detectsEncoding || likely != nullptr);
    readThrough(path, observers);
    const VornInputFinding finding = observers.findProblem(path);
    if (!look.force && !finding.problem.empty()) {
      refuse(finding, path, log);
      return kBadInput;
    }
    guess = observers.judgeEncoding(log);
  }
  if (encoding != nullptr) {
    if (look.detectsEncoding) {
      chooseEncoding(*encoding, guess, log);
    }
    log.setSourceDecoder(VornTranscoder::makeDecoder(encoding->getValue()));
  }
  if (likely != nullptr) {
    *likely = guess;
  }
  return kDone;
}

}  // namespace cli
