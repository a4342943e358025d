// VornDataTypeConverter: turns the type names of one data store version into the host's.
#pragma once

#include "host/base/text.h"
#include "host/datatypes/data_store_version.h"

class VornLog;

class VornDataTypeConverter {
 public:
  // `tool` says whose words the names are in (VornDataTypeConstants). The log must outlive the converter.
  VornDataTypeConverter(VornLog& log, const VornDataStoreVersion& version, VornString tool);

  // Returns the host type for a type of the data store, or "undefined" if it is unknown, which is logged at
  // level debug. Letter case is ignored, as are blanks around words and parentheses. A name with arguments,
  // such as "number (10, 2)", is looked up with and then without them. The result is valid until the next
  // call.
  const VornString& getImportTypeName(const VornString& nativeType);

 private:
  VornLog& log_;
  VornDataStoreVersion version_;
  VornString tool_;
  VornString importTypeName_;
};
