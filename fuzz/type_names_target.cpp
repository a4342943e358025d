#include <algorithm>
#include <vector>

#include "datatypes/target_systems.h"
#include "host/datatypelib/data_type_constants.h"
#include "host/datatypelib/data_type_converter.h"
#include "host/datatypelib/native_types.h"
#include "support.h"
#include "targets.h"

namespace {

// Whether what stands in parentheses is all that keeps two words apart: "U()8" is U8, "U () 8" is two words.
bool joinsWords(std::string_view name) {
  const auto isWordByte = [](char byte) {
    return kVornBlanks.find(byte) == std::string_view::npos && byte != '(' && byte != ')';
  };
  for (std::size_t i = name.find(')'); i < name.size(); i = name.find(')', i + 1)) {
    if (i + 1 < name.size() && isWordByte(name[i + 1])) {
      return true;
    }
  }
  return false;
}

// Another way to write the name, as the bytes tell: in letter case, and in blanks where they do not count.
std::string respell(std::string_view name, Bytes& bytes) {
  const auto putBlanks = [&](std::string& text) {
    for (std::uint8_t count = bytes.take() % 3; count > 0; --count) {
      text += bytes.choose(kVornBlanks);
    }
  };
  const bool blanksAreFree = !joinsWords(name);
  std::string text;
  putBlanks(text);
  for (const char byte : name) {
    const bool isLetter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    if (blanksAreFree && (byte == '(' || byte == ')')) {
      putBlanks(text);
      text += byte;
      putBlanks(text);
    } else {
      text += isLetter && bytes.take() % 2 == 1 ? static_cast<char>(byte ^ 0x20) : byte;
    }
  }
  putBlanks(text);
  return text;
}

}  // namespace

void fuzzTypeNames(Bytes input) {
  const targetDatabaseInfo& system = input.choose(silrdm::targetDatabases);
  QuietLog log;
  log.setLevel(VornSeverity::debug);
  VornDataTypeConverter converter(log, system, VornDataTypeConstants::TOOL_SILVERRUN_RDM);
  const auto convert = [&](std::string_view name) {
    return std::string(converter.getImportTypeName(VornString(name)).view());
  };
  const std::string_view any = input.takeText();
  const std::string hostType = convert(any);
  require(!hostType.empty(), "every name means something", any);
  require(convert(respell(any, input)) == hostType, "the spelling of any name counts", any);
  if (const std::vector<std::string_view> names = system.getTypeNames(); !names.empty()) {
    const std::string_view known = input.choose(names);
    require(convert(respell(known, input)) ==
                findHostType(system.getDataStore().view(), system.getVersion(), known),
            "the spelling of a known name counts", known);
  }
}
