// The SQL writer: a store model as a script of statements that make its database.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes the model in the dialect that `format` names, or else that of the model's database, or else in ANSI
// SQL. What the dialect does not accept becomes a comment with the reason; one warning per kind counts them.
// Throws VornException if the file cannot be written.
void writeModelAsSql(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                     VornLog& log);
