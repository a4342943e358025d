// The DBML writer: a store model as a document of the Database Markup Language, from which tools draw
// diagrams.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes tables with their columns, keys, indexes and notes, foreign keys as references, and views as notes.
// What DBML cannot express is written in the note of its table. Throws VornException if the file cannot be
// written.
void writeModelAsDbml(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                      VornLog& log);
