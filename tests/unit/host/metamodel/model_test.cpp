#include <functional>

#include "../../support.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/traversal.h"
#include "host/metamodel/verify.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

template <class T>
T* made(const char* name) {
  auto* object = new T();
  object->setName(name);
  return object;
}

// A model with a little of everything.
struct SmallModel {
  // Not in the model; what is made here outlives it.
  VornBaseType strayType;
  VornMany<VornAssociationRole> strayEnd;
  VornCandidateKey strayKey;

  VornStoreModel model;
  VornDesignPackage* package = made<VornDesignPackage>("package");
  VornClass* order = made<VornClass>("Order");
  VornClass* item = made<VornClass>("Item");
  VornAttribute* orderId = made<VornAttribute>("id");
  VornAttribute* orderDate = made<VornAttribute>("date");
  VornAttribute* itemId = made<VornAttribute>("id");
  VornCandidateKey* orderKey = made<VornCandidateKey>("order key");
  VornForeignKey* itemKey = made<VornForeignKey>("item key");
  VornIndex* index = made<VornIndex>("index");
  VornIndexMember* member = made<VornIndexMember>("member");
  VornBaseType* number = made<VornBaseType>("number");
  VornAssociation* association = made<VornAssociation>("has");
  VornAssociationRole* role = made<VornAssociationRole>("role");

  SmallModel() {
    model.setName("model");
    model.addDesignPackage(package);
    model.addType(number);
    package->addNamespaceElementUniqueName(order, '/');
    package->addNamespaceElementUniqueName(item, '/');
    package->addNamespaceElementUniqueName(association, '/');
    order->addFeatureUniqueName(orderId, '/');
    order->addFeatureUniqueName(orderDate, '/');
    item->addFeatureUniqueName(itemId, '/');
    order->addKey(orderKey);
    order->addPrimaryCandidateKey(orderKey);
    orderKey->addAttribute(orderId);
    orderId->addType(number);
    item->addKey(itemKey);
    item->addIndex(index);
    index->addKey(itemKey);
    index->addIndexMember(member);
    itemId->addIndexMember(member);
    itemKey->addAttribute(itemId);
    itemKey->addCandidateKey(orderKey);
    association->addAssociationRole(role);
    role->addAssociatedClass(order);
    itemKey->addAssociationRole(role);
  }
};

TEST(VerifyModel, FindsEachKindOfFault) {
  const std::pair<const char*, std::function<void(SmallModel&)>> cases[] = {
      {"Attribute 'id' refers to an object outside the model",
       [](auto& m) { m.orderId->addType(&m.strayType); }},
      {"ForeignKey 'item key' refers to an object outside the model",
       [](auto& m) { m.itemKey->addCandidateKey(&m.strayKey); }},
      {"Class 'Item' has a link to AssociationRole 'role' that does not lead back",
       [](auto& m) {
         VornLinks::connect(*m.role, m.role->associatedClass, *m.order, m.item->associationRoleCollection);
       }},
      {"AssociationRole 'role'",  // its class has nothing of it
       [](auto& m) { VornLinks::connect(*m.role, m.role->associatedClass, *m.item, m.strayEnd); }},
      {"Class 'Item' has another table's key as its primary key",
       [](auto& m) { m.item->addPrimaryCandidateKey(m.orderKey); }},
      {"ForeignKey 'item key' has a column of another table",
       [](auto& m) { m.itemKey->addAttribute(m.orderDate); }},
      {"CandidateKey 'order key' has an index of another table",
       [](auto& m) { m.index->addKey(m.orderKey); }},
      {"Index 'index' has a member without its column",
       [](auto& m) { m.orderDate->addIndexMember(m.member); }},  // another table's
      {"Index 'index' has a member without its column", [](auto& m) { delete m.itemId; }}};
  for (const auto& [problem, harm] : cases) {
    SmallModel small;
    ASSERT_THAT(verifyModel(small.model), IsEmpty());
    harm(small);
    EXPECT_THAT(verifyModel(small.model), testing::Contains(HasSubstr(problem)));
  }
}

TEST(VerifyModel, FindsAMemberThatKnowsAnotherOwner) {
  SmallModel small;
  VornLinks::connect(*small.item, small.item->keyCollection, *small.orderKey, small.strayKey.ownerEnd());
  EXPECT_THAT(verifyModel(small.model), testing::Contains("Class 'Item' does not own what it holds"));
  small.strayKey.ownerEnd().clear();
  EXPECT_THAT(verifyModel(small.model), IsEmpty());
}

TEST(VerifyModel, LetsMembersWithoutANameBe) {
  SmallModel small;
  small.order->setName("");
  small.item->setName("");
  small.orderId->setName("");
  small.orderDate->setName("");
  EXPECT_THAT(verifyModel(small.model), IsEmpty());
}

// Writes down the names it comes by; leaves out tables by the name it is told.
class NameWriter final : public VornTraversalOperation {
 public:
  explicit NameWriter(const char* skipped = "-") : skipped_(skipped) {}
  bool pre_process(VornObject& object, void*& user) override {
    if (object.getName() == "Order") {
      user = &depth;
    }
    return object.getName() != skipped_;
  }
  void process(VornObject& object, void* user) override {
    names.push_back(std::string(object.getName().view()) + (user == &depth ? "*" : ""));
  }
  std::vector<std::string> names;
  int depth = 0;

 private:
  VornString skipped_;
};

TEST(Traversal, GoesDownBeforeItGoesOnAndLeavesOutWhatIsDeclined) {
  SmallModel small;
  NameWriter all;
  small.model.depthTraversal(all, nullptr);
  EXPECT_THAT(all.names, ElementsAre("model", "number", "package", "Order*", "id*", "date*", "order key*",
                                     "Item", "id", "item key", "index", "member", "has", "role"));
  NameWriter some("Item");
  small.package->setName("");
  some.run(*small.package, nullptr);
  EXPECT_THAT(some.names, ElementsAre("", "Order*", "id*", "date*", "order key*", "has", "role"));
}

TEST(StoreModel, DestroysAllItHoldsAndNothingElse) {
  SmallModel small;
  small.orderId->addType(&small.strayType);
  small.strayKey.setName("stays");
  small.itemKey->addCandidateKey(&small.strayKey);
  small.model.recursiveDelete();
  EXPECT_EQ(small.strayType.featureCollection.count(), 0U);
  EXPECT_EQ(small.strayKey.foreignKeyCollection.count(), 0U);
  NameWriter left;
  small.model.depthTraversal(left, nullptr);
  EXPECT_THAT(left.names, ElementsAre("model"));
  small.model.addType(made<VornBaseType>("new"));
}

TEST(StructuralFeature, CopiesWhatAColumnSaysAndNotWhereItStands) {
  SmallModel small;
  auto& from = *small.itemId;
  from.physicalName = "ID";
  from.description = "text";
  from.attributeText = "more";
  from.optional = true;
  from.position = 7;
  from.generalPointer = &small;
  from.addType(small.number);
  from.addNote(new VornNote());
  from.noteCollection[0]->noteText = "note";
  from.addSynonym(made<VornSynonym>("synonym"));
  auto* to = made<VornSQLViewAttribute>("column");
  auto* view = made<VornSQLViewEntity>("View");
  small.package->addNamespaceElementUniqueName(view, '/');
  view->addFeatureUniqueName(to, '/');
  *to = from;
  *to = *to;
  EXPECT_EQ(view->featureCollection.get("id"), to) << "renamed in its table too";
  EXPECT_EQ(to->physicalName, "ID");
  EXPECT_EQ(to->description, "text");
  EXPECT_EQ(to->attributeText, "more");
  EXPECT_TRUE(to->optional);
  ASSERT_EQ(to->noteCollection.count(), 1U);
  EXPECT_EQ(to->noteCollection[0]->noteText, "note");
  EXPECT_EQ(from.noteCollection.count(), 1U);
  EXPECT_EQ(to->type, nullptr);
  EXPECT_EQ(to->synonymCollection.count(), 0U);
  EXPECT_EQ(to->generalPointer, nullptr);
  static_cast<VornStructuralFeature&>(*small.orderDate) = from;
  EXPECT_EQ(small.orderDate->position, 0);
  EXPECT_EQ(small.orderDate->indexMemberCollection.count() + small.orderDate->keyCollection.count(), 0U);
}

TEST(DerivedType, CopiesItsTextsAndNumbersAndNoLinks) {
  SmallModel small;
  VornDerivedType from;
  from.setName("name");
  from.physicalName = "NAME";
  from.description = "text";
  from.dataType = "VARCHAR";
  from.length = 10;
  from.scale = 2;
  from.domainText1 = "1";
  from.domainText2 = "2";
  from.domainText3 = "3";
  from.userDomain = true;
  from.generalPointer = &small;
  from.addDerivedFromConcreteType(small.number);
  from.addNote(new VornNote());
  small.orderId->addType(&from);
  VornDerivedType further;
  further.addDerivedFromConcreteType(&from);
  const VornDerivedType to(from);
  const auto facts = [](const VornDerivedType& type) {
    return std::tuple(type.getName(), type.physicalName, type.description, type.getDataType(),
                      type.getLength(), type.getScale(), type.domainText1, type.domainText2, type.domainText3,
                      type.userDomain);
  };
  EXPECT_EQ(facts(to), facts(from));
  EXPECT_EQ(to.userDomain, true);
  EXPECT_EQ(to.generalPointer, nullptr);
  EXPECT_EQ(to.derivedFrom, nullptr);
  EXPECT_EQ(to.noteCollection.count() + to.featureCollection.count() + to.derivedTypeCollection.count(), 0U);
  EXPECT_EQ(small.orderId->type, &from);
}

}  // namespace
