// Writing JSON for programs that read what this one prints.
#pragma once

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <iostream>
#include <string>
#include <string_view>

#include "host/base/unicode.h"

namespace cli {

using JsonWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

inline void writeText(JsonWriter& json, const char* key, std::string_view text) {
  json.Key(key);
  json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

// A JSON value, made by `fill`, that ends with a line end.
template <class Fill>
std::string makeJson(Fill fill) {
  rapidjson::StringBuffer buffer;
  JsonWriter json(buffer);
  json.SetIndent(' ', 2);
  fill(json);
  return std::string(buffer.GetString(), buffer.GetSize()) + "\n";
}

// Writes a list of objects, filled from `items` one by one.
template <class Items, class FillObject>
void writeList(JsonWriter& json, const Items& items, FillObject fillObject) {
  json.StartArray();
  for (const auto& item : items) {
    json.StartObject();
    fillObject(json, item);
    json.EndObject();
  }
  json.EndArray();
}

// It may go to a terminal.
template <class Fill>
void printJson(Fill fill) {
  std::cout << escapeCommands(makeJson(fill));
}

template <class Items, class FillObject>
void printJsonList(const Items& items, FillObject fillObject) {
  printJson([&](JsonWriter& json) { writeList(json, items, fillObject); });
}

}  // namespace cli
