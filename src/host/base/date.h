// VornDate: a moment, and how the host writes it.
#pragma once

#include <cstdint>

#include "host/base/text.h"

class VornDate {
 public:
  // `seconds` since 1970-01-01 00:00 UTC.
  explicit VornDate(std::int64_t seconds) : seconds_(seconds) {}

  // Returns "2026-11-22 03:04:05 PST": the time at UTC-8, also in summer.
  VornString getPstTimestamp() const;

 private:
  std::int64_t seconds_;
};
