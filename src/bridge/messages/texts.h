// The bridge's text literals: every text it shows to a user, by name.
#pragma once

#include "host/base/literals.h"

namespace silrdm {

class SilverrunRdmImportLiterals final : public VornTextLiteralCollection {
 public:
  SilverrunRdmImportLiterals();
};

// The one collection, made with all its literals by the first call, whatever thread makes it.
const SilverrunRdmImportLiterals& getLiteralCollection();

// The literal of that name, or null.
const VornTextLiteral* findLiteral(const VornString& name);

// The literal of a name that the collection has: for the literals built on it.
const VornTextLiteral& getLiteral(const char* name);

}  // namespace silrdm
