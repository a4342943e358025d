#include <vector>

#include "bridge/target_systems/target_systems.h"
#include "host/datatypes/data_type_constants.h"
#include "host/datatypes/data_type_converter.h"
#include "host/datatypes/native_types.h"
#include "support.h"
#include "targets.h"

namespace {

// Another way to write the name, as the bytes tell: in letter case, and in blanks at its ends.
std::string respell(std::string_view name, Bytes& bytes) {
  std::string text;
  const auto putBlanks = [&] {
    for (std::uint8_t count = bytes.take() % 3; count > 0; --count) {
      text += bytes.choose(kVornBlanks);
    }
  };
  putBlanks();
  for (const char byte : name) {
    const bool isLetter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    text += isLetter && bytes.take() % 2 == 1 ? static_cast<char>(byte ^ 0x20) : byte;
  }
  putBlanks();
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
