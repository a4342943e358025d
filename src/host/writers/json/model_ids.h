// ModelIds: the ids by which a saved model's objects refer to each other.
//
// An id is made from what the object is and what it and its owners are called ("attribute:Customer/name"), so
// that it does not change when other objects come and go. In names, '%', '/' and '#' are written as '%' and
// two hexadecimal digits. Of a long name (more than 64 bytes in JSON) an id has the beginning, "%~" and a
// hash of the whole, so that objects that refer to each other cost what they are and not what they are
// called. Where siblings share a name, or the same beginning and hash, the later ones are numbered from 2:
// "class:#2".
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "host/metamodel/object.h"

class VornStoreModel;

class ModelIds {
 public:
  // The model must not change while the ids are in use.
  explicit ModelIds(const VornStoreModel& model);

  // Appends the id of `object`, which belongs to the model. True when it is ASCII without any character that
  // is escaped in JSON.
  bool append(std::string& text, const VornObject& object) const;

 private:
  // Both return what `append` does.
  bool appendPath(std::string& text, const VornObject& object) const;
  bool appendName(std::string& text, const VornObject& object) const;
  // Returns the replacement for a long name; empty for others.
  std::string_view shortened(const VornObject& object) const;
  // What siblings must have in common to be numbered; `buffer` keeps it where it is not the name itself.
  std::string_view identity(const VornObject& object, std::string& buffer) const;
  // The how-manieth it is of the siblings that are written like it, from 1.
  std::uint32_t numberOf(const VornObject& object, bool isPlain) const;
  // Fills `numbers_`, unless it has done so.
  void numberMembers(const VornLinkMany& members) const;

  // Of large collections: the members numbered from 2, and whose they are.
  mutable std::unordered_map<const VornObject*, std::uint32_t> numbers_;
  mutable std::unordered_set<const VornLinkMany*> numbered_;
  mutable std::unordered_map<const VornObject*, std::string> shortened_;
  // One after the other, ids are mostly those of siblings.
  mutable const VornObject* lastOwner_ = nullptr;
  mutable std::string lastPath_;
  mutable bool isLastPathPlain_ = true;
};
