// VornNameIndex: the names of an owner's members, so that a name is looked up, taken, given back and made
// unique in constant time, however many members there are and however many share a name.
#pragma once

#include <cstdint>
#include <functional>
#include <queue>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/base/text.h"
#include "host/metamodel/links.h"

class VornObject;

class VornNameIndex final : public VornMemberIndex {
 public:
  // Enters `member` by its present name. Whoever renames or destroys a member removes it first. A renamed one
  // costs a step more for each namesake that was added after it.
  void add(const VornObject& member) override;
  void remove(const VornObject& member) noexcept override;

  // The first added of the members of that name, or null.
  VornObject* find(std::string_view name) const;
  // The member of the same name that was added next, or null.
  VornObject* findNext(const VornObject& member) const;

  // `name` where no member has it, or it is empty: members without a name do not clash. Otherwise `name`, the
  // separator and the smallest integer from 2 up that makes a name no member has.
  VornString makeUnique(const VornString& name, char separator);

 private:
  struct Holders {
    const VornObject* first;
    const VornObject* last;
  };
  // Kept for members that share their name: the neighbours in the order they were added.
  struct Neighbours {
    const VornObject* previous = nullptr;
    const VornObject* next = nullptr;
  };
  // The integers used after one name and separator.
  struct Suffixes {
    std::uint64_t next = 2;  // the names with the integers from 2 up to here, exclusive, were all taken
    // Those of them that are free again.
    std::priority_queue<std::uint64_t, std::vector<std::uint64_t>, std::greater<>> givenBack;
  };

  // Makes the key of an entry a view of its first holder's name.
  void rekey(std::unordered_map<std::string_view, Holders>::iterator place) noexcept;
  void giveBack(std::string_view name) noexcept;

  // The keys are the texts that the first holders hold.
  std::unordered_map<std::string_view, Holders> holders_;
  std::unordered_map<const VornObject*, Neighbours> neighbours_;
  std::unordered_map<std::string, Suffixes> suffixes_;  // by name and separator
};

// These look among the members of an end that owns them. Few members are compared one by one; many have an
// index of their names, made when it is first needed.

// The first added of the members of that name, or null.
VornObject* findNamed(const VornLinkMany& members, std::string_view name);
// The member of the same name that was added next, or null.
VornObject* findNextNamesake(const VornLinkMany& members, const VornObject& member);
// See VornNameIndex::makeUnique.
VornString makeUniqueName(const VornLinkMany& members, const VornString& name, char separator);

// The index of the names of the owner's members, among which `member` is; null if there is none.
VornNameIndex* indexAmongSiblings(const VornObject& member);
// Drops that index before many members are renamed; it is made anew when needed.
void dropIndexAmongSiblings(const VornObject& member);
