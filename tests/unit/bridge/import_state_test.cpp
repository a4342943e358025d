#include "bridge/import_state.h"

#include "../support.h"
#include "elements/registries.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"

namespace silrdm {
namespace {

// A new object with its element, in the registry and nowhere else.
template <class Object, class Base>
Object* enter(SILObjectRegistry<Base>& registry) {
  Object* object = makeParsed<Object, SILRDMEntity>("1").release();
  registry.add(object);
  return object;
}

// What is not destroyed is a leak.
TEST(ReleaseImportState, DestroysWhatTheModelDoesNotHold) {
  VornStoreModel model;
  for (int run = 0; run < 2; ++run) {
    storeModel = &model;
    auto* table = enter<VornClass>(entityRegistry);
    auto* key = enter<VornForeignKey>(combinationRegistry);
    model.addNamespaceElementUniqueName(table, '/');
    table->addKey(key);
    // Nobody's, but tied to what is placed.
    auto* role = enter<VornAssociationRole>(roleRegistry);
    role->addAssociatedClass(table);
    key->addAttribute(enter<VornAttribute>(attributeRegistry));
    key->addCandidateKey(enter<VornCandidateKey>(combinationRegistry));
    enter<VornAssociation>(relationshipRegistry)->addAssociationRole(role);
    enter<VornGeneralization>(specializationRegistry)->addRole(VornGeneralizationRole::Kind::subtype, table);
    enter<VornDerivedType>(commonItemRegistry)
        ->addDerivedFromConcreteType(enter<VornDerivedType>(domainRegistry));
    enter<VornSQLViewEntity>(viewRegistry)->addSourceElement(table);
    enter<VornDatabaseSchema>(userRegistry)->addImportedNamespaceElement(table);
    dataTypeRegistry.add(new SILRDMDataType("1"));
    combinationColumnRegistry.add(new SILRDMCombinationColumn("1"));
    currentSchema = new SILRDMSchema("1");

    releaseImportState();

    EXPECT_EQ(storeModel, nullptr);
    EXPECT_EQ(entityRegistry.findFirst("1"), nullptr);
    EXPECT_EQ(table->generalPointer, nullptr);
    EXPECT_EQ(key->candidateKey, nullptr);
  }
}

}  // namespace
}  // namespace silrdm
