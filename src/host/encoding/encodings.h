// The encodings that a model's texts may have: the choices of every bridge's option "Encoding".
#pragma once

#include <span>
#include <string>
#include <string_view>

struct VornEncoding {
  std::string_view name;       // the option's value: "Western European (Windows-1252)"
  std::string_view converter;  // name of the ICU converter; empty for "unknown", which leaves texts unchanged
};

// Grouped by language. The first is "unknown", which leaves texts unchanged.
std::span<const VornEncoding> getEncodings();

// What is meant when no known encoding is named.
const VornEncoding& getDefaultEncoding();

// The encoding whose choice is exactly `name`; the default when there is none.
const VornEncoding& getEncodingOfChoice(std::string_view name);

// The encoding that a person means by `name`, or null: its choice or any usual short name of it
// ("windows-1252", "cp850", "latin1"), in any letter case.
const VornEncoding* findEncoding(std::string_view name);

// Whether each of its characters is one byte.
bool isSingleByte(const VornEncoding& encoding);
