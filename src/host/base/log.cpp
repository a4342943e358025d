#include "host/base/log.h"

#include "host/base/irregularity.h"
#include "host/base/unicode.h"

VornLog::~VornLog() = default;

void VornLog::write(VornSeverity severity, const VornString& code, const VornString& text) {
  ++counts_[static_cast<std::size_t>(severity)];
  if (isEnabled(severity)) {
    put(severity, code, text);
  }
}

void VornLog::irregular(const VornIrregularity& irregularity) {
  if (isEnabled(VornSeverity::debug)) {
    debug(describe(VornDecodedIrregularity(irregularity, *this).get()));
  }
}

void VornLog::recordsCounted(const VornRecordCount& count) {
  debug(describe(count));
}

void VornLog::modelSaved(VornStoreModel& /*model*/) {
}

void VornLog::progress(const char* /*what*/, std::size_t /*done*/, std::size_t /*total*/) {
}

void VornLog::targetSystemUnknown(const VornString& /*name*/, const VornString& /*version*/) {
}

void VornStreamLog::put(VornSeverity severity, const VornString& code, const VornString& text) {
  std::string line(getSeverityName(severity));
  line.append(" ").append(code.view()).append(" ").append(toPrintableLine(text.view())).append("\n");
  stream_ << line;
}
