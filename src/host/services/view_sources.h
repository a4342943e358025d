// What the SQL views of a model read.
#pragma once

#include <unordered_set>
#include <vector>

class VornDesignPackage;
class VornLog;
class VornSQLViewEntity;
class VornStoreModel;

// Ties each view to the tables and views that its statement reads, once each, in the order it names them. A
// name is looked for among the physical names, then the names, then the synonyms of the model's tables and
// views, the view itself left out; letter case does not count. Of several with one name, a qualified name
// means the one in the schema that it names, any other the one in the view's own schema; where there is none
// the first. Linear in the size of the model and its statements.
//
// A name that is nowhere is reported to the log at level debug. Where the view's texts are not ASCII, it is
// reported when they have been decoded.
void processSqlViewAssociations(VornStoreModel& model, VornLog& log);

// The views whose sources depend on the model's encoding: in a text that is not UTF-8 yet, the second byte of
// a letter can look like a bracket or a quote, and letters are not compared without regard to case.
class VornUndecodedViews {
 public:
  // Made before the model is transcoded.
  explicit VornUndecodedViews(const VornStoreModel& model);

  // Ties the views anew, once the model is transcoded.
  void findSources(VornLog& log) const;

 private:
  std::vector<const VornDesignPackage*> packages_;      // with views, and with texts that are not ASCII
  std::unordered_set<const VornSQLViewEntity*> views_;  // with a name or a statement that is not
};
