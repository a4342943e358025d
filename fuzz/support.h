// What the fuzz targets share.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/base/log.h"

// An input, taken piece by piece from its front. Behind the end there are zeros and empty texts.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : rest_(bytes) {}

  bool empty() const { return rest_.empty(); }
  std::string_view rest() const { return rest_; }

  std::uint8_t take();
  // What stands before the next zero byte, which is dropped.
  std::string_view takeText();
  // The item that the next byte tells; the list is not empty.
  template <class List>
  decltype(auto) choose(List&& list) {
    return list[take() % std::size(list)];
  }

 private:
  std::string_view rest_;
};

struct FuzzTarget {
  const char* name;
  void (*run)(Bytes input);  // ends the process where something is not as it must be
};
std::span<const FuzzTarget> getFuzzTargets();
// Ends the process when there is none of that name.
const FuzzTarget& getFuzzTarget(std::string_view name);

// Unless `holds`, says so and ends the process, which is a find.
void require(bool holds, std::string_view what, std::string_view details = {});

// The bytes of a file.
std::string readAll(const std::string& path);

class QuietLog : public VornLog {
  void put(VornSeverity /*severity*/, const VornString& /*code*/, const VornString& /*text*/) override {}
};

// The path, always the same, of a file in memory with these bytes alone.
VornString putIntoFile(std::string_view bytes);
