// A model as it was saved: whether it hangs together, and whether it is what is wanted.
#pragma once

#include <rapidjson/document.h>

#include <map>
#include <string>
#include <vector>

class SavedModel {
 public:
  explicit SavedModel(const std::string& json);

  const rapidjson::Value& getRoot() const { return document_; }
  // What is wrong with the file whatever the model: it is no JSON or not UTF-8, an id stands in it twice, a
  // reference leads nowhere.
  const std::vector<std::string>& getProblems() const { return problems_; }

  // Where the part of the model at `path` is not what is wanted in JSON: a line each, with its path. An
  // object must have the wanted keys and may have others; a list must agree item by item and in length. An
  // object that is wanted in the place of a reference is compared with what is referred to.
  std::vector<std::string> findMismatches(const std::string& wanted, const char* path) const;

 private:
  const rapidjson::Value* findReferred(const rapidjson::Value& reference) const;
  void compare(const rapidjson::Value& wanted, const rapidjson::Value& got, const std::string& path,
               std::vector<std::string>& mismatches) const;

  rapidjson::Document document_;
  std::map<std::string, const rapidjson::Value*> objects_;  // by id
  std::vector<std::string> problems_;
};
