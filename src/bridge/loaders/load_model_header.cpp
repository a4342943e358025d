#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

constexpr auto kLayout = recordLayout(10,  //
                                      field(2, "name", &VornModelObject::setName),
                                      field(4, "physicalName", &VornModelObject::physicalName),
                                      field(5, "description", &VornModelObject::description));

}  // namespace

const RecordFields kModelHeaderFields = kLayout.getFields();

void loadModelHeader(Import& import) {
  VornStoreModel& model = import.storeModel;
  const bool more = readAndHandleRecord<kLayout>(import.reader, [&model](const Record<kLayout>& record) {
    auto element = std::make_unique<SILRDMElement>(record.getIdentifier(), record.getPlace());
    record.fill(model, *element);
    hang(std::move(element), model);
  });
  if (more) {
    const std::string_view name = model.getName().view();
    import.report(Irregularity::furtherModel, Subject(import.reader.getPlace(), name, name));
    throw KVB_SRRDM::SILRDM_I_BAD_FILE_FORMAT.makeException({}).withContext("unexpected second record");
  }
}

}  // namespace silrdm
