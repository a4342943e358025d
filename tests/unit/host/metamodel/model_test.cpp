#include <functional>

#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/traversal.h"
#include "host/metamodel/verify.h"
#include "tests/support.h"

namespace {

// A model with a little of everything.
struct SmallModel {
  VornBaseType strayType;  // not in the model
  VornStoreModel model;
  VornClass* order = new VornClass();
  VornClass* item = new VornClass();
  VornAttribute* orderId = new VornAttribute();
  VornCandidateKey* orderKey = new VornCandidateKey();
  VornForeignKey* itemKey = new VornForeignKey();
  VornIndex* index = new VornIndex();
  VornIndexMember* member = new VornIndexMember();
  VornAssociation* association = new VornAssociation();
  VornAssociationRole* role = new VornAssociationRole();

  SmallModel() {
    item->setName("Item");
    model.addNamespaceElementUniqueName(order, '/');
    model.addNamespaceElementUniqueName(item, '/');
    model.addNamespaceElementUniqueName(association, '/');
    order->addFeatureUniqueName(orderId, '/');
    order->addKey(orderKey);
    order->addIndex(index);
    index->addIndexMember(std::unique_ptr<VornIndexMember>(member));
    index->addKey(orderKey);
    orderId->addIndexMember(member);
    orderKey->addAttribute(orderId);
    item->addKey(itemKey);
    itemKey->addCandidateKey(orderKey);
    association->addAssociationRole(role);
  }
};

TEST(VerifyModel, FindsEachKindOfFault) {
  const std::pair<const char*, std::function<void(SmallModel&)>> cases[] = {
      {"Attribute '' refers to an object outside the model",
       [](auto& m) { m.orderId->addType(&m.strayType); }},
      {"AssociationRole '' has a link to Class 'Item' that does not lead back",
       [](auto& m) { VornLinks::join(*m.role, m.role->associatedClass, *m.item, m.model.ownerEnd()); }},
      {"Class 'Item' has another table's key as its primary key",
       [](auto& m) { m.item->addPrimaryCandidateKey(m.orderKey); }},
      {"ForeignKey '' has an index of another table", [](auto& m) { m.index->addKey(m.itemKey); }},
      {"Index '' has a member without its column", [](auto& m) { delete m.orderId; }}};
  for (const auto& [problem, harm] : cases) {
    SmallModel small;
    ASSERT_THAT(verifyModel(small.model), testing::IsEmpty());
    harm(small);
    EXPECT_THAT(verifyModel(small.model), testing::Contains(problem));
  }
}

// Writes down what it comes by, and leaves out the table 'Item'.
class Writer final : public VornTraversalOperation {
 public:
  bool pre_process(VornObject& object, void*& /*user*/) override { return object.getName() != "Item"; }
  void process(VornObject& object, void* /*user*/) override { written.push_back(&object); }
  std::vector<VornObject*> written;
};

TEST(StoreModel, IsWalkedDownBeforeOnAndLosesAllItHoldsAndNothingElse) {
  SmallModel m;
  Writer writer;
  m.orderId->addType(&m.strayType);
  m.model.depthTraversal(writer, nullptr);
  EXPECT_THAT(writer.written, testing::ElementsAre(&m.model, m.order, m.orderId, m.orderKey, m.index,
                                                   m.member, m.association, m.role));
  m.model.recursiveDelete();
  EXPECT_EQ(m.strayType.featureCollection.count(), 0U);
  EXPECT_EQ(m.model.elementCollection.count(), 0U);
}

}  // namespace
