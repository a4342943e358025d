// The DBML writer: a store model as a document of the Database Markup Language, from which tools draw
// diagrams.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes tables with their columns, keys, indexes and notes, foreign keys as references, and views as notes.
// What DBML has no words for stands in the note of the table it belongs to. Throws VornException when the
// file cannot be written.
void writeModelAsDbml(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                      VornLog& log);
