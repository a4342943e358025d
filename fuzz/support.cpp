#include "support.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "targets.h"

namespace {

constexpr FuzzTarget kTargets[] = {
    {"import", fuzzImport},         {"field-reader", fuzzFieldReader},
    {"type-names", fuzzTypeNames},  {"inspection", fuzzInspection},
    {"repair", fuzzRepair},         {"sql-reader", fuzzSqlReader},
    {"transcoder", fuzzTranscoder}, {"writers", fuzzWriters},
};

}  // namespace

std::uint8_t Bytes::take() {
  if (rest_.empty()) {
    return 0;
  }
  const auto byte = static_cast<std::uint8_t>(rest_.front());
  rest_.remove_prefix(1);
  return byte;
}

std::string_view Bytes::takeText() {
  const std::string_view text = rest_.substr(0, rest_.find('\0'));
  rest_.remove_prefix(std::min(text.size() + 1, rest_.size()));
  return text;
}

std::span<const FuzzTarget> getFuzzTargets() {
  return kTargets;
}

const FuzzTarget& getFuzzTarget(std::string_view name) {
  const auto* const found = std::ranges::find(kTargets, name, &FuzzTarget::name);
  require(found != std::end(kTargets), "there is no such target", name);
  return *found;
}

void require(bool holds, std::string_view what, std::string_view details) {
  if (!holds) {
    std::fprintf(stderr, "not as it must be: %.*s: %.*s\n", static_cast<int>(what.size()), what.data(),
                 static_cast<int>(details.size()), details.data());
    std::abort();
  }
}

std::string readAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  require(file.is_open(), "there is no such file", path);
  return {std::istreambuf_iterator<char>(file), {}};
}

VornString putIntoFile(std::string_view bytes) {
  static const int descriptor = ::memfd_create("vorn-fuzz", MFD_CLOEXEC);
  require(::ftruncate(descriptor, 0) == 0 &&
              ::pwrite(descriptor, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()),
          "the file in memory cannot be written");
  return VornString("/proc/self/fd/" + std::to_string(descriptor));
}
