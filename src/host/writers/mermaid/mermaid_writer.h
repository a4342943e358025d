// The Mermaid writer: a store model as an entity relationship diagram that is drawn where Markdown is shown.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes tables, their columns and how they relate to each other. Where that is more than Mermaid draws
// unless it is told to, comments, then columns of no key, then all columns are left out, and edges and tables
// at last; a comment of the document and a warning tell which. Throws VornException when the file cannot be
// written.
void writeModelAsMermaid(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                         VornLog& log);
