#include "saved_model.h"

#include <rapidjson/error/en.h>
#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <set>

namespace {

// The keys whose values are ids, alone or in a list.
const std::set<std::string_view> kReferenceKeys = {"type",
                                                   "derivedFrom",
                                                   "modelElements",
                                                   "importedElements",
                                                   "sourceElements",
                                                   "primaryKey",
                                                   "index",
                                                   "candidateKey",
                                                   "associationRole",
                                                   "generalizationRole",
                                                   "sourceAttribute",
                                                   "destinationAttribute",
                                                   "class",
                                                   "attribute",
                                                   "attributes"};

std::string_view toView(const rapidjson::Value& text) {
  return {text.GetString(), text.GetStringLength()};
}

// The value as JSON, a long one cut short.
std::string show(const rapidjson::Value& value) {
  constexpr std::size_t kLongest = 400;
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  value.Accept(writer);
  std::string text(buffer.GetString(), buffer.GetSize());
  return text.size() <= kLongest
             ? text
             : text.substr(0, kLongest) + "... (" + std::to_string(text.size()) + " bytes)";
}

}  // namespace

SavedModel::SavedModel(const std::string& json) {
  document_.Parse<rapidjson::kParseValidateEncodingFlag>(json.data(), json.size());
  if (document_.HasParseError()) {
    problems_.emplace_back(rapidjson::GetParseError_En(document_.GetParseError()));
    return;
  }
  collectIds(document_);
  checkReferences(document_, false);
}

void SavedModel::collectIds(const rapidjson::Value& value) {
  if (value.IsArray()) {
    for (const auto& item : value.GetArray()) {
      collectIds(item);
    }
  } else if (value.IsObject()) {
    for (const auto& member : value.GetObject()) {
      if (toView(member.name) == "id" && member.value.IsString() &&
          !objects_.try_emplace(toView(member.value), &value).second) {
        problems_.push_back("two objects have the id " + show(member.value));
      }
      collectIds(member.value);
    }
  }
}

void SavedModel::checkReferences(const rapidjson::Value& value, bool isReference) {
  if (value.IsArray()) {
    for (const auto& item : value.GetArray()) {
      if (isReference && item.IsNull()) {
        problems_.emplace_back("a list of references holds null");
      }
      checkReferences(item, isReference);
    }
  } else if (value.IsObject()) {
    for (const auto& member : value.GetObject()) {
      checkReferences(member.value, kReferenceKeys.contains(toView(member.name)));
    }
  } else if (isReference && value.IsString() && findReferred(value) == nullptr) {
    problems_.push_back("nothing has the id " + show(value));
  }
}

const rapidjson::Value* SavedModel::findReferred(const rapidjson::Value& reference) const {
  const auto found = objects_.find(toView(reference));
  return found == objects_.end() ? nullptr : found->second;
}

void SavedModel::compare(const rapidjson::Value& wanted, const rapidjson::Value& got, const std::string& path,
                         Lines& mismatches) const {
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
    const std::string length = wanted.IsArray() ? std::to_string(wanted.Size()) + " items, " : "";
    mismatches.push_back(path + ": wanted " + length + show(wanted) + ", got " + show(got));
  }
}

std::vector<std::string> SavedModel::findMismatches(const rapidjson::Value& wanted, const char* path) const {
  const rapidjson::Value* got = rapidjson::Pointer(path).Get(document_);
  if (got == nullptr) {
    return {std::string(path) + ": not in the model"};
  }
  Lines mismatches;
  compare(wanted, *got, path, mismatches);
  return mismatches;
}
