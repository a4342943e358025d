#include "host/services/types.h"

#include "host/metamodel/feature.h"
#include "host/metamodel/store_model.h"
#include "tests/support.h"

namespace {

VornDerivedType* makeType(const char* name, VornConcreteType* base) {
  auto* type = new VornDerivedType();
  type->setName(name);
  type->addDerivedFromConcreteType(base);
  return type;
}

TEST(FactorizeTypes, MergesTypesWhoseBasesBecameTheSame) {
  VornStoreModel model;
  VornBaseType* base = createBaseType("String").release();
  model.addType(base);
  // A type in the model that derives from its twin comes before it and is none of the same.
  auto* code = makeType("Code", base);
  VornDerivedType otherCode(*code);  // held by its maker, outside of the model
  otherCode.generalPointer = &otherCode;
  otherCode.addDerivedFromConcreteType(base);
  auto* late = makeType("Short", &otherCode);
  auto* early = makeType("Short", code);
  auto* nested = makeType("Code", code);
  VornAttribute column;
  column.addType(early);
  for (VornDerivedType* type : {late, early, nested, code}) {
    model.addType(type);
  }
  factorizeTypes(model);
  EXPECT_EQ(late->derivedFrom, code);
  EXPECT_EQ(column.type, late);
  EXPECT_EQ(model.typeCollection.count(), 4U);
  EXPECT_EQ(otherCode.derivedTypeCollection.count(), 0U);
}

}  // namespace
