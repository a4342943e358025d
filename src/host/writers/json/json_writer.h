// The JSON writer: the lossless form of a store model, which docs/model-format.md describes.
#pragma once

class VornLog;
class VornOutputFile;
class VornStoreModel;
struct VornOutputFormat;

// Writes the model as one JSON document, streamed. Texts that are not UTF-8 are written as ISO-8859-1, with
// one warning that counts them. Throws VornException if the file cannot be written.
void writeModelAsJson(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                      VornLog& log);
