#include "host/services/generalization_roles.h"

#include "host/metamodel/relationship.h"
#include "tests/support.h"

namespace {

TEST(GeneralizationRoles, AreOneForAClassAndAKindAndForgottenWithEither) {
  VornGeneralization generalization;
  auto table = std::make_unique<VornClass>();
  const auto getSubtype = [&](bool create) {
    return getSubtypeGeneralizationRole(generalization, *table, create);
  };
  EXPECT_EQ(getSubtype(false), nullptr);
  auto* supertype = getSupertypeGeneralizationRole(generalization, *table, true);
  EXPECT_EQ(getSubtype(false), nullptr);
  auto* subtype = getSubtype(true);
  EXPECT_NE(subtype, supertype);
  EXPECT_EQ(getSubtype(true), subtype);
  delete subtype;
  EXPECT_EQ(getSubtype(false), nullptr);
  getSubtype(true);
  table->~VornClass();  // another table in the very same place
  new (table.get()) VornClass();
  EXPECT_EQ(getSubtype(false), nullptr);
  EXPECT_EQ(getSubtype(true)->associatedClass, table.get());
  EXPECT_EQ(generalization.roleCollection.count(), 3U);
}

}  // namespace
