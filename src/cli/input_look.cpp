#include "cli/input_look.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>

#include "host/bridgelib/foreign_content.h"
#include "host/constants/pemo.h"
#include "host/modelbridge/dll_interface.h"
#include "host/modelbridge/input_inspection.h"
#include "host/std/exception.h"
#include "host/transcoder/encodings.h"
#include "host/transcoder/transcoder.h"

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
      message.log(log,
                  {VornString(choice_.name), VornString(std::string_view(std::to_string(contradicting)))});
    }
  }

 private:
  const VornEncoding& choice_;
  bool isUtf8_;
  VornUtf8Tally tally_;
};

// All that looks at the bytes of one file.
struct Observers {
  VornForeignContentInspector foreign;
  std::unique_ptr<VornInputInspector> ofBridge;  // null: the bridge has none
  std::optional<EncodingCheck> check;
  std::optional<EncodingEvidence> evidence;

  void look(std::string_view bytes) {
    foreign.look(bytes);
    if (ofBridge != nullptr) {
      ofBridge->look(bytes);
    }
    if (check) {
      check->look(bytes);
    }
    if (evidence) {
      evidence->look(bytes);
    }
  }
};

// Throws VornException where the file cannot be read on. One that cannot be opened is the bridge's to report.
void readThrough(const std::string& path, Observers& observers) {
  VornFile file{VornString(std::string_view(path))};
  file.open(VornFile::kRead | VornFile::kBinary);
  for (std::string_view ahead = file.peek(); !ahead.empty(); ahead = file.peek()) {
    observers.look(ahead);
    file.skip(ahead.size());
  }
  if (const int reason = file.getError(); reason != 0) {
    throw PEMO::CANNOT_READ_FILE.makeException({file.getPath(), std::strerror(reason)})
        .withContext(VornString("at byte " + std::to_string(file.getPosition())));
  }
}

// Empty where nothing speaks against an import.
VornInputFinding findProblem(Observers& observers, const std::string& path) {
  VornInputFinding finding = observers.foreign.finish(path);
  if (finding.problem.empty() && observers.ofBridge != nullptr) {
    finding = observers.ofBridge->finish(path);
  }
  return finding;
}

void refuse(const VornInputFinding& finding, const std::string& path, VornLog& log) {
  const std::string nextStep = finding.isRepairable
                                   ? "To repair it: vorn repair " + quoteForShell(path) + " -o fixed.txt"
                                   : finding.nextStep;
  const VornException problem = PEMO::UNSOUND_INPUT.makeException(
      {VornString(std::string_view(finding.problem)), VornString(std::string_view(nextStep))});
  log.write(problem.getSeverity(), problem.getCode(), problem.getText());
}

std::string explain(const LikelyEncoding& likely) {
  const std::string count = std::to_string(likely.letters);
  switch (likely.ground) {
    case EncodingGround::asciiOnly:
      return "That is the default, since no byte is beyond ASCII.";
    case EncodingGround::tooFew:
      return likely.isChoice
                 ? "Characters beyond ASCII are few (" + count + "), but all of them are valid UTF-8."
                 : "That is the default, since " + count + " bytes beyond ASCII are too few to tell.";
    case EncodingGround::validUtf8:
      return "All " + count + " characters beyond ASCII are valid UTF-8.";
    case EncodingGround::detector:
      return likely.isChoice
                 ? "The detector is sure of it by " + std::to_string(likely.confidence) + " of 100."
                 : "That is the default, since imports do not read what the detector found: " + likely.name;
    case EncodingGround::unreadable:
      break;
  }
  return "That is the default, since the export can be read only once.";
}

// Sets the option to what the bytes tell, or the default.
void chooseEncoding(VornOption& option, const LikelyEncoding& likely, VornLog& log) {
  option.setValue(likely.isChoice ? VornString(std::string_view(likely.name)) : option.getDefault());
  PEMO::ENCODING_DETECTED.log(log, {option.getValue(), VornString(std::string_view(explain(likely)))});
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
  if (std::filesystem::is_regular_file(path, notThere)) {
    Observers observers;
    if (auto* const inspection = dynamic_cast<VornInputInspection*>(&bridge)) {
      observers.ofBridge = inspection->makeInspector();
    }
    if (look.detectsEncoding || likely != nullptr) {
      observers.evidence.emplace();
    }
    if (encoding != nullptr && !look.detectsEncoding) {
      const VornEncoding& choice = getEncodingOfChoice(encoding->getValue().view());
      if (EncodingCheck::canTell(choice)) {
        observers.check.emplace(choice);
      }
    }
    readThrough(path, observers);
    const VornInputFinding finding = findProblem(observers, path);
    if (!look.force && !finding.problem.empty()) {
      refuse(finding, path, log);
      return kBadInput;
    }
    if (observers.evidence) {
      guess = observers.evidence->judge();
    }
    if (observers.check) {
      observers.check->warn(log);
    }
  }
  if (encoding != nullptr && look.detectsEncoding) {
    chooseEncoding(*encoding, guess, log);
  }
  if (encoding != nullptr) {
    log.setSourceDecoder(VornTranscoder::makeDecoder(encoding->getValue()));
  }
  if (likely != nullptr) {
    *likely = guess;
  }
  return kDone;
}

}  // namespace cli
