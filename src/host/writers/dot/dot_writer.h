// The DOT writer: a store model as a picture that Graphviz draws.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes tables and views as boxes with their columns, schemas as frames where there are several groups of
// them, relationships with crow's feet, inheritance with hollow arrows and what views read with dashed ones.
// Throws VornException when the file cannot be written.
void writeModelAsDot(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                     VornLog& log);
