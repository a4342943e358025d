// The SQL writer: a store model as a script of statements that make its database.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes the model in the dialect that `format` names, or in that of the model's own database, or in ANSI
// SQL. What the dialect cannot take becomes a comment with the reason, and one warning for each kind of these
// tells how many there are. Throws VornException when the file cannot be written.
void writeModelAsSql(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                     VornLog& log);
