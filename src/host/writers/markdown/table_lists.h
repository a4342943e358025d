// The lists of a data dictionary that follow a table's columns: keys, indexes, foreign keys, relationships
// and inheritance.
#pragma once

#include <unordered_map>

#include "host/writers/markdown/markdown_page.h"

class TableLists {
 public:
  // Both must outlive the lists.
  TableLists(const RelationalModel& model, MarkdownPage& page);

  // Writes the lists that the table has entries for.
  void write(const VornClass& table);

 private:
  void writeKeys(const VornClass& table);
  void writeIndexes(const VornClass& table);
  void writeForeignKeys(const VornClass& table);
  void writeForeignKey(const VornForeignKey& key);
  void writeRelationships(const VornClass& table);
  void writeOtherEnds(const VornAssociation& association, const VornAssociationRole& first);
  void writeEnd(const VornAssociationRole& role);
  void writeInheritance(const VornClass& table);
  void writeSubtypes(const VornGeneralization& generalization);

  MarkdownPage& page_;
  std::unordered_map<const VornGeneralization*, const VornClass*> supertypes_;
};
