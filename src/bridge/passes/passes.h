// The assembly passes, which turn the loaded records into a model, in the order in which they run.
#pragma once

namespace silrdm {

class Import;

// Drops what does not belong to the model's schema, and the domains and data types of other target systems.
void filterBySchema(Import& import);
// Puts every column into its table or view; drops, with a warning, a column that has neither.
void placeAttributes(Import& import);
// Gives every domain the host type of its data type, and derives it from a base type.
void typeDomains(Import& import);
// Gives every common item the host type of its domain, and derives it from a base type.
void typeCommonItems(Import& import);
// Gives every column of a table its type: its domain, or one of its own where it has sizes of its own.
void typeAttributes(Import& import);
// Numbers the columns of every table.
void orderAttributes(Import& import);
// Adds the types that are in use to the model, makes one of those that are the same, drops the others.
void collectModelTypes(Import& import);
// Gives every generalization its supertype and puts it into the design package and the diagram; reports one
// without a supertype, which stays out.
void placeSpecializations(Import& import);
// Pairs roles and makes of each pair an association in the design package and the diagram or, where the roles
// name a specialization, a subtype of it. Reports what cannot be connected, which stays out.
void connectRelationships(Import& import);
// Puts every key with its index on its table; ties foreign keys to the keys they reference and to the roles
// they follow.
void connectKeys(Import& import);
// Gives keys their columns and indexes their members, and maps differently named columns of foreign keys.
void connectKeyMembers(Import& import);
// Places tables, synonyms and views into the database schemas of their owners.
void placeInSchemas(Import& import);
// Numbers the members of every index.
void orderIndexMembers(Import& import);
// Drops keys without columns and their indexes; notes what kinds of keys are left.
void dropEmptyKeys(Import& import);
// Drops the roles whose relationship became a subtype.
void dropGeneralizationRoles(Import& import);

}  // namespace silrdm
