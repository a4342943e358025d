#include "bridge/import_state.h"

#include "../support.h"
#include "elements/registries.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"

namespace silrdm {
namespace {

std::size_t countRegistered() {
  return roleRegistry.getCount() + relationshipRegistry.getCount() + attributeRegistry.getCount() +
         combinationColumnRegistry.getCount() + combinationRegistry.getCount() + dataTypeRegistry.getCount() +
         domainRegistry.getCount() + entityRegistry.getCount() + specializationRegistry.getCount() +
         commonItemRegistry.getCount() + userRegistry.getCount() + viewRegistry.getCount();
}

// A new object with its element, in the registry and nowhere else.
template <class Element, class Object, class Base>
Object* enter(SILObjectRegistry<Base>& registry, const char* identifier) {
  Object* object = makeParsed<Object, Element>(identifier).release();
  registry.add(object);
  return object;
}

class ReleaseTest : public testing::Test {
 protected:
  ~ReleaseTest() override { importLog = nullptr; }

  VornStoreModel model_;
};

TEST_F(ReleaseTest, EmptiesEveryRegistryAndKeepsWhatTheModelHolds) {
  for (int run = 0; run < 2; ++run) {
    storeModel = &model_;
    auto* package = new VornDesignPackage();
    model_.addDesignPackage(package);
    designPackage = package;
    auto* table = enter<SILRDMEntity, VornClass>(entityRegistry, "1");
    package->addNamespaceElementUniqueName(table, '/');
    auto* column = enter<SILRDMAttribute, VornAttribute>(attributeRegistry, "2");
    table->addFeatureUniqueName(column, '/');
    auto* key = enter<SILRDMCombination, VornForeignKey>(combinationRegistry, "3");
    table->addKey(key);
    auto* marked = new VornBaseType();
    marked->generalPointer = reinterpret_cast<void*>(1);  // a host's own mark
    model_.addType(marked);
    // Nobody's, but tied to what is placed.
    for (const char* identifier : {"4", "4"}) {
      enter<SILRDMAttribute, VornAttribute>(attributeRegistry, identifier)->addType(marked);
      enter<SILRDMCombination, VornCandidateKey>(combinationRegistry, identifier)->addAttribute(column);
      key->addCandidateKey(static_cast<VornCandidateKey*>(combinationRegistry.findFirst(identifier)));
      auto* role = enter<SILRDMAssociationRole, VornAssociationRole>(roleRegistry, identifier);
      role->addAssociatedClass(table);
      enter<SILRDMAssociation, VornAssociation>(relationshipRegistry, identifier)->addAssociationRole(role);
      enter<SILRDMGeneralization, VornGeneralization>(specializationRegistry, identifier)
          ->addRole(VornGeneralizationRole::Kind::supertype, table);
      enter<SILRDMUserDomain, VornDerivedType>(commonItemRegistry, identifier)
          ->addDerivedFromConcreteType(marked);
      enter<SILRDMDomain, VornDerivedType>(domainRegistry, identifier)->addDerivedFromConcreteType(marked);
      enter<SILRDMEntity, VornSQLViewEntity>(viewRegistry, identifier)->addSourceElement(table);
      enter<SILRDMEntity, VornClass>(entityRegistry, identifier);
      enter<SILRDMUser, VornDatabaseSchema>(userRegistry, identifier)->addImportedNamespaceElement(table);
      dataTypeRegistry.add(new SILRDMDataType(identifier));
      combinationColumnRegistry.add(new SILRDMCombinationColumn(identifier));
    }
    currentSchema = new SILRDMSchema("5");
    defaultPlacedNames.add("name");
    hasCandidateKeys = hasOtherKeys = true;

    releaseImportState();

    EXPECT_EQ(countRegistered(), 0U);
    EXPECT_EQ(storeModel, nullptr);
    EXPECT_EQ(designPackage, nullptr);
    EXPECT_EQ(currentSchema, nullptr);
    EXPECT_FALSE(defaultPlacedNames.contains("name"));
    EXPECT_FALSE(hasCandidateKeys || hasOtherKeys);
    for (const VornObject* placed : std::initializer_list<const VornObject*>{table, column, key, marked}) {
      EXPECT_EQ(placed->generalPointer, nullptr);
      EXPECT_NE(placed->getOwner(), nullptr);
    }
    EXPECT_EQ(column->keyCollection.count() + marked->featureCollection.count() +
                  marked->derivedTypeCollection.count() + table->readingViewCollection.count() +
                  table->associationRoleCollection.count() + table->generalizationRoleCollection.count() +
                  table->importingPackageCollection.count(),
              0U);
    EXPECT_EQ(key->candidateKey, nullptr);
  }
}

TEST_F(ReleaseTest, DestroysAllOfAnImportThatNeverCameToAModel) {
  dataTypeRegistry.add(new SILRDMDataType("1"));
  auto* column = enter<SILRDMAttribute, VornAttribute>(attributeRegistry, "2");
  enter<SILRDMCombination, VornCandidateKey>(combinationRegistry, "3")->addAttribute(column);
  releaseImportState();
  releaseImportState();
  EXPECT_EQ(countRegistered(), 0U);
}

}  // namespace
}  // namespace silrdm
