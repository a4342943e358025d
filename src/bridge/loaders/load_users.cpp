#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/store_model.h"

namespace silrdm {

namespace {

constexpr auto kLayout = recordLayout(6,  //
                                      field(2, "identifier"), field(3, "name", &VornModelObject::setName),
                                      field(6, "description", &VornModelObject::description));

}  // namespace

const RecordFields kUserFields = kLayout.getFields();

void loadUsers(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_USERS.log(import.log);
  forEachRecord<kLayout>(import.reader, [&import](const Record<kLayout>& record) {
    VornDatabaseSchema& schema = import.userRegistry.add(makeParsed<VornDatabaseSchema, SILRDMUser>(record));
    schema.setPhysicalName(schema.getName());
    import.storeModel.addDataPackage(&schema);
  });
}

}  // namespace silrdm
