// Keys that a model does not have but that follow from what it has.
#pragma once

class VornCandidateKey;
class VornClass;

// Gives a class without a primary key the first of its identifier keys that has columns.
void updatePrimaryKeyOnClass(VornClass& table);

// Makes a foreign key to `key`, a key of `parent`, for every association with two roles of which `parent` is
// the parent side and to which no foreign key is tied yet. A role is the parent side when it is the one side
// and the opposite role is not; where both are, "1" goes before "0..1", and of equals the first role is.
//
// The foreign key is named like its association and has an index. Its columns are those of the other table
// that have the names of the key's columns, where these are free; any other is added to that table as a copy,
// under a unique name. Linear in the number of associations and columns.
void createForeignKeyOnAssociation(VornClass& parent, VornCandidateKey& key);
