// What the SQL views of a model read.
#pragma once

class VornLog;
class VornStoreModel;

// Ties each view to the tables and views that its statement reads, once each, in the order it names them. A
// name is looked for among the physical names, then the names, then the synonyms of the model's tables and
// views, the view itself left out; the letter case of ASCII letters does not count. A name that is nowhere is
// told to the log at level debug. Linear in the size of the model and its statements.
void processSqlViewAssociations(VornStoreModel& model, VornLog& log);
