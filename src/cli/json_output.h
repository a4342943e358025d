// What commands print with --json.
#pragma once

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <iostream>
#include <string_view>

#include "host/std/text.h"

namespace cli {

using JsonWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

inline void writeText(JsonWriter& json, const char* key, std::string_view text) {
  json.Key(key);
  json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

// Writes a JSON value, made by `fill`, to standard output.
template <class Fill>
void printJson(Fill fill) {
  rapidjson::StringBuffer buffer;
  JsonWriter json(buffer);
  json.SetIndent(' ', 2);
  fill(json);
  std::cout << buffer.GetString() << '\n';
}

template <class Items, class FillObject>
void printJsonList(const Items& items, FillObject fillObject) {
  printJson([&](JsonWriter& json) {
    json.StartArray();
    for (const auto& item : items) {
      json.StartObject();
      fillObject(json, item);
      json.EndObject();
    }
    json.EndArray();
  });
}

}  // namespace cli
