// Keys that a model does not have but that follow from what it has.
#pragma once

class VornCandidateKey;
class VornChildTables;
class VornClass;

// Gives a class without a primary key the first of its identifier keys that has columns.
void updatePrimaryKeyOnClass(VornClass& table);

// Makes a foreign key to `key`, a key of `parent`, for every association with two roles of which `parent` is
// the parent side and to which no foreign key is tied yet. A role is the parent side when it is the one side
// and the opposite role is not; where both are, "1" goes before "0..1", and of equals the first role is.
//
// The foreign key is named like its association and has an index. Its columns are those of the other table
// that have the names of the key's columns, where these are free, or none of them: none where the other end
// is many and they contain a key of the other table, and none where the parent is optional and all of them
// are required. Any other is added to that table as a copy, with a name and a physical name that no other
// column has. One `children` serves the calls for all parents: with it they are linear in the number of
// associations and columns.
void createForeignKeyOnAssociation(VornClass& parent, VornCandidateKey& key, VornChildTables& children);
