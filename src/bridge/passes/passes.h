// The assembly passes, which turn the loaded records into a model, in the order in which they run.
#pragma once

namespace silrdm {

class Import;

// Drops what does not belong to the model's schema, and the domains and data types of other target systems.
void filterBySchema(Import& import);
// Adds every column to its table or view; drops columns without one, with a warning.
void placeAttributes(Import& import);
// Gives every domain the host type of its data type, and derives it from a base type.
void typeDomains(Import& import);
// Gives every common item the host type of its domain, and derives it from a base type.
void typeCommonItems(Import& import);
// Gives every column of a table its type: its domain, or a separate type if its length or scale differs.
void typeAttributes(Import& import);
// Numbers the columns of every table.
void orderAttributes(Import& import);
// Adds the types in use to the model, merges equal ones and drops the others.
void collectModelTypes(Import& import);
// Gives every generalization its supertype and adds it to the design package and the diagram. Leaves out and
// reports those without a supertype.
void placeSpecializations(Import& import);
// Pairs roles. Each pair becomes an association in the design package and the diagram or, if a role names a
// specialization, a subtype. Leaves out and reports roles that cannot be connected.
void connectRelationships(Import& import);
// Adds every key and its index to its table; links foreign keys to the referenced keys and to their roles.
void connectKeys(Import& import);
// Adds columns to keys and members to indexes, and maps columns of foreign keys whose names differ.
void connectKeyMembers(Import& import);
// Places tables, synonyms and views into the database schemas of their owners.
void placeInSchemas(Import& import);
// Numbers the members of every index.
void orderIndexMembers(Import& import);
// Drops keys without columns, with their indexes; records which kinds of keys remain.
void dropEmptyKeys(Import& import);
// Drops the roles whose relationship became a subtype.
void dropGeneralizationRoles(Import& import);

}  // namespace silrdm
