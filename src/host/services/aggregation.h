// Which associations bind a part to its whole.
#pragma once

class VornAssociation;

// Sets the aggregation of the roles of an association with two of them: the parent's is composite where a
// foreign key that follows the association is a part of the child's primary key; any other is none.
void setAggregationProperty(VornAssociation& association);
