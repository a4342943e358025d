// How the tables of a model relate to each other, as diagrams and dictionaries show it.
#pragma once

#include <cstdint>
#include <set>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/writers/common/relational_model.h"

// The words for an action: "set null"; empty for one that the model does not specify.
std::string_view getActionWords(VornReferentialActionType::Value action);

// How many rows one end of a relationship can have.
struct EndCount {
  bool isOptional = true;
  bool isMany = true;

  friend bool operator==(const EndCount&, const EndCount&) = default;
};

// What a multiplicity like "1", "0..1" or "1..*" says; any number where it says nothing.
EndCount getEndCount(std::string_view multiplicity);

// Which sets of a table's columns have no two rows alike. A set is known where a key or unique index has just
// its columns, or one of them alone.
class UniqueColumns {
 public:
  explicit UniqueColumns(const VornClass& table);
  bool includes(const VornKey& key) const;

 private:
  std::set<std::vector<const VornAttribute*>> sets_;  // each sorted by address
};

// Which columns of a table are in which keys.
class KeyMarks {
 public:
  explicit KeyMarks(const VornClass& table);
  // "PK", "FK" and "UK" (a key that is not the primary one), those that apply with commas between them.
  std::string_view get(const VornAttribute& column) const;

 private:
  std::unordered_map<const VornAttribute*, std::uint8_t> marks_;
};

// The supertype of each generalization: of several the first. None for one without.
std::unordered_map<const VornGeneralization*, const VornClass*> getSupertypes(const RelationalModel& model);

// A line of a diagram between two of its boxes.
struct DiagramEdge {
  enum class Kind : std::uint8_t { relationship, inheritance };

  Kind kind;
  // `from` is the parent of a foreign key, the class of a relationship's first role, or the supertype; `to`
  // is the other end. A relationship drawn as a box is at `from` or, below its supertypes, at `to`.
  const VornModelElement* from;
  const VornModelElement* to;
  EndCount atFrom;
  EndCount atTo;
  bool isIdentifying;              // the rows at one end are known by those at the other
  const VornModelObject* meaning;  // the association, generalization or foreign key
  const VornModelObject* role;     // of `from` in it; null where it is none of an association's two
};

struct Diagram {
  // Associations of more than two tables and generalizations with several supertypes, which are drawn as
  // boxes.
  std::vector<const VornRelationship*> hubs;
  std::vector<DiagramEdge> edges;
};

// The relationships of the model: its associations, its generalizations, and the foreign keys that follow
// none of those. What has no table at one of its ends is in no diagram.
Diagram makeDiagram(const RelationalModel& model);

// Whether the association joins tables, so that a diagram can show it.
bool joinsTables(const VornAssociation& association);

// Whether no role before this one has a table.
bool isFirstTableIn(const VornAssociation& association, const VornAssociationRole& role);

// What is said of an edge: the role's name, or else that of what it means, or nothing.
const VornString& getLabel(const DiagramEdge& edge, bool logical);
