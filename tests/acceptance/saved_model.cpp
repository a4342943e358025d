#include "saved_model.h"

#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <regex>

namespace {

// The keys whose values are ids, alone or in a list.
const std::regex kReferenceKeys(
    "type|derivedFrom|(model|imported|source)Elements|primaryKey|index|candidateKey|"
    "(association|generalization)Role|(source|destination)Attribute|class|attributes?");

// The value as JSON, a long one cut short.
std::string show(const rapidjson::Value& value) {
  constexpr std::size_t kLongest = 400;
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  value.Accept(writer);
  const std::string text(buffer.GetString(), buffer.GetSize());
  return text.size() <= kLongest ? text : text.substr(0, kLongest) + "...";
}

// Calls `visit` with each value and its key, which an item has from its list.
template <class Visit>
void visitValues(const rapidjson::Value& value, const char* key, const Visit& visit) {
  visit(value, key);
  if (value.IsArray()) {
    for (const auto& item : value.GetArray()) {
      visitValues(item, key, visit);
    }
  } else if (value.IsObject()) {
    for (const auto& member : value.GetObject()) {
      visitValues(member.value, member.name.GetString(), visit);
    }
  }
}

}  // namespace

SavedModel::SavedModel(const std::string& json) {
  if (document_.Parse<rapidjson::kParseValidateEncodingFlag>(json.data(), json.size()).HasParseError()) {
    problems_.push_back("no JSON, or not UTF-8, from byte " + std::to_string(document_.GetErrorOffset()));
    return;
  }
  visitValues(document_, "", [this](const rapidjson::Value& value, const char* /*key*/) {
    if (value.IsObject() && value.HasMember("id") &&
        !objects_.try_emplace(value["id"].GetString(), &value).second) {
      problems_.push_back("two objects have the id " + show(value["id"]));
    }
  });
  visitValues(document_, "", [this](const rapidjson::Value& value, const char* key) {
    if (value.IsString() && std::regex_match(key, kReferenceKeys) && findReferred(value) == nullptr) {
      problems_.push_back(std::string(key) + ": nothing has the id " + show(value));
    }
  });
}

const rapidjson::Value* SavedModel::findReferred(const rapidjson::Value& reference) const {
  const auto found = objects_.find(reference.GetString());
  return found == objects_.end() ? nullptr : found->second;
}

void SavedModel::compare(const rapidjson::Value& wanted, const rapidjson::Value& got, const std::string& path,
                         std::vector<std::string>& mismatches) const {
  if (wanted.IsObject() && got.IsString() && findReferred(got) != nullptr) {
    compare(wanted, *findReferred(got), path, mismatches);
  } else if (wanted.IsObject() && got.IsObject()) {
    for (const auto& member : wanted.GetObject()) {
      const std::string memberPath = path + '/' + member.name.GetString();
      if (const auto found = got.FindMember(member.name); found != got.MemberEnd()) {
        compare(member.value, found->value, memberPath, mismatches);
      } else {
        mismatches.push_back(memberPath + ": wanted " + show(member.value) + ", got no such key");
      }
    }
  } else if (wanted.IsArray() && got.IsArray() && wanted.Size() == got.Size()) {
    for (rapidjson::SizeType place = 0; place < wanted.Size(); ++place) {
      compare(wanted[place], got[place], path + '/' + std::to_string(place), mismatches);
    }
  } else if (wanted != got) {
    mismatches.push_back(path + ": wanted " + show(wanted) + ", got " + show(got));
  }
}

std::vector<std::string> SavedModel::findMismatches(const std::string& wanted, const char* path) const {
  rapidjson::Document document;
  if (document.Parse(wanted.data(), wanted.size()).HasParseError()) {
    return {"what is wanted is no JSON from here on: " + wanted.substr(document.GetErrorOffset())};
  }
  const rapidjson::Value* got = rapidjson::Pointer(path).Get(document_);
  if (got == nullptr) {
    return {std::string(path) + ": not in the model"};
  }
  std::vector<std::string> mismatches;
  compare(document, *got, path, mismatches);
  return mismatches;
}
