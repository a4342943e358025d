#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/type.h"

namespace silrdm {

namespace {

constexpr auto kLayout =
    recordLayout(14,  //
                 field(2, "identifier"), field(3, "name", &VornModelObject::setName),
                 field(4, "domainId", &SILRDMUserDomain::domainId),
                 field(6, "physicalName", &VornModelObject::physicalName),
                 field(7, "description", &VornModelObject::description),
                 field(12, "length", &VornDerivedType::length), field(13, "scale", &VornDerivedType::scale));

}  // namespace

const RecordFields kCommonItemFields = kLayout.getFields();

void loadCommonItems(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_COMMON_ITEMS.log(import.log);
  loadEach<kLayout, SILRDMUserDomain>(
      import.reader, import.commonItemRegistry,
      [](VornDerivedType& item, const auto& /*record*/) { item.userDomain = true; });
}

}  // namespace silrdm
