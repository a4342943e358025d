// A model as it was saved, with its references looked up, and how it is compared with what is wanted of it.
#pragma once

#include <rapidjson/document.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

class SavedModel {
 public:
  explicit SavedModel(const std::string& json);

  const rapidjson::Value& getRoot() const { return document_; }
  // What is wrong with the file whatever the model: it is no JSON, an id stands in it twice, a reference
  // leads nowhere.
  const std::vector<std::string>& getProblems() const { return problems_; }

  // Where `got`, the part of the model at `path`, is not what is wanted: a line each, with its JSON path.
  // An object must have the wanted keys and may have others; a list must agree item by item and in length. An
  // object that is wanted in the place of a reference is compared with what is referred to.
  std::vector<std::string> findMismatches(const rapidjson::Value& wanted, const char* path) const;

 private:
  using Lines = std::vector<std::string>;

  void collectIds(const rapidjson::Value& value);
  void checkReferences(const rapidjson::Value& value, bool isReference);
  const rapidjson::Value* findReferred(const rapidjson::Value& reference) const;
  void compare(const rapidjson::Value& wanted, const rapidjson::Value& got, const std::string& path,
               Lines& mismatches) const;

  rapidjson::Document document_;
  std::map<std::string_view, const rapidjson::Value*> objects_;  // by id
  std::vector<std::string> problems_;
};
