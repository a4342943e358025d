// The Mermaid writer: a store model as an entity relationship diagram that is drawn where Markdown is shown.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes tables, their columns and their relationships. If that exceeds Mermaid's default limits, leaves out
// comments, then columns outside keys, then all columns, and finally edges and tables; a comment in the
// document and a warning say which. Throws VornException if the file cannot be written.
void writeModelAsMermaid(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                         VornLog& log);
