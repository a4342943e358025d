// The Markdown writer: a store model as a data dictionary for people to read.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes all tables and views by schema, with a table of contents: what they mean, their columns, keys,
// indexes, foreign keys and relationships. Throws VornException when the file cannot be written.
void writeModelAsMarkdown(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                          VornLog& log);
