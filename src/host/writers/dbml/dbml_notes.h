// Notes of a DBML document: what the model says in words, and what DBML has no other words for.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/writers/common/named_model.h"

class DbmlNotes {
 public:
  using Lines = std::vector<std::string>;

  // The model must outlive it.
  explicit DbmlNotes(NamedModel& model);

  // A text's lines; none of one with nothing to read.
  Lines makeLines(const VornString& text);
  // The whole name of an element that goes by a shortened one; nothing of any other.
  Lines makeNameLines(const VornModelObject& element);
  // What is said of the model and of its schemas, of a column, of a view with its statement.
  Lines makeModelLines();
  Lines makeColumnLines(const VornAttribute& column);
  Lines makeViewLines(const VornSQLViewEntity& view);

  // Synonyms, subtypes, and the relationships that no foreign key follows: those with the table of the first
  // role that has one.
  void addRelations(const VornClass& table, Lines& notes);

  // "index I", "foreign key F".
  std::string describe(const VornKey& key) const;
  std::string describe(const VornIndex& index) const;

 private:
  std::string describe(const VornAssociation& association);

  NamedModel& model_;
  std::unordered_map<const VornGeneralization*, const VornClass*> supertypes_;
};
