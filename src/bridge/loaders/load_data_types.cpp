#include "bridge/loaders/load_records.h"

namespace silrdm {

namespace {

constexpr auto kLayout =
    recordLayout(12,  //
                 field(2, "identifier"), field(3, "targetSystemId", &SILRDMDataType::targetSystemId),
                 field(4, "nativeTypeName", &SILRDMDataType::nativeTypeName),
                 field(10, "length"));  // for domains that give none

}  // namespace

const RecordFields kDataTypeFields = kLayout.getFields();

void loadDataTypes(Import& import) {
  forEachRecord<kLayout>(import.reader, [&import](const Record<kLayout>& record) {
    auto type = makeElement<SILRDMDataType>(record);
    type->lengthText = record.number("length");
    import.dataTypeRegistry.add(std::move(type));
  });
}

}  // namespace silrdm
