#include "bridge/loaders/load_records.h"

namespace silrdm {

namespace {

constexpr auto kLayout =
    recordLayout(19,  //
                 field(2, "identifier"), field(5, "targetSystemId", &SILRDMSchema::targetSystemId));

}  // namespace

const RecordFields kSchemaFields = kLayout.getFields();

void loadSchema(Import& import) {
  const bool more = readAndHandleRecord<kLayout>(import.reader, [&import](const Record<kLayout>& record) {
    import.currentSchema = makeElement<SILRDMSchema>(record);
  });
  if (more) {
    import.report(Irregularity::furtherSchema, import.currentSchema == nullptr
                                                   ? Subject(import.reader.getPlace(), "", "")
                                                   : Subject(*import.currentSchema));
  }
}

}  // namespace silrdm
