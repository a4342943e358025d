#include "host/metamodel/links.h"

#include <functional>
#include <map>
#include <random>

#include "../../support.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/verify.h"

namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Objects = std::vector<const VornObject*>;

Objects heldBy(const VornLinkOne& end) {
  return end.getObject() == nullptr ? Objects{} : Objects{end.getObject()};
}

template <class T>
Objects heldBy(const VornMany<T>& end) {
  Objects objects;
  for (const VornObject* object : end) {
    objects.push_back(object);
    EXPECT_TRUE(end.contains(*object));
  }
  EXPECT_EQ(end.count(), objects.size());
  for (std::size_t i = 0; i < objects.size(); ++i) {
    EXPECT_EQ(end[i], objects[i]);
  }
  return objects;
}

// A kind of link between objects `a` and `b`, whatever their classes.
struct LinkKind {
  const char* name;
  std::function<std::unique_ptr<VornObject>()> makeA;
  std::function<std::unique_ptr<VornObject>()> makeB;
  std::function<void(VornObject&, VornObject&)> link;
  std::function<void(VornObject&)> clearA;
  std::function<Objects(VornObject&)> atA;
  std::function<Objects(VornObject&)> atB;
  bool manyAtA;  // an A holds any number of Bs
  bool manyAtB;
};

template <class T>
std::unique_ptr<VornObject> make() {
  if constexpr (std::is_same_v<T, VornGeneralizationRole>) {
    return std::make_unique<T>(T::Kind::subtype);
  } else {
    return std::make_unique<T>();
  }
}

template <class A, class B, class Link, class EndOfA, class EndOfB>
LinkKind kind(const char* name, Link link, EndOfA endOfA, EndOfB endOfB) {
  constexpr auto isMany = []<class End>(const End&) { return std::is_base_of_v<VornLinkMany, End>; };
  const auto a = make<A>();
  const auto b = make<B>();
  return {name,
          make<A>,
          make<B>,
          [=](VornObject& x, VornObject& y) { link(static_cast<A&>(x), static_cast<B*>(&y)); },
          [=](VornObject& x) { endOfA(static_cast<A&>(x)).clear(); },
          [=](VornObject& x) { return heldBy(endOfA(static_cast<A&>(x))); },
          [=](VornObject& y) { return heldBy(endOfB(static_cast<B&>(y))); },
          isMany(endOfA(static_cast<A&>(*a))),
          isMany(endOfB(static_cast<B&>(*b)))};
}

// As a macro, because members cannot be handed on together with the classes they stand in.
#define LINK(A, operation, endOfA, B, endOfB)                                                       \
  kind<A, B>(                                                                                       \
      #A "::" #operation, [](A& a, B* b) { a.operation; }, [](A & a) -> auto& { return a.endOfA; }, \
      [](B & b) -> auto& { return b.endOfB; })

std::vector<LinkKind> allKinds() {
  return {
      LINK(VornAttribute, addType(b), type, VornBaseType, featureCollection),
      LINK(VornSQLViewAttribute, addType(b), type, VornDerivedType, featureCollection),
      LINK(VornDerivedType, addDerivedFromConcreteType(b), derivedFrom, VornBaseType, derivedTypeCollection),
      LINK(VornAttribute, addIndexMember(b), indexMemberCollection, VornIndexMember, attribute),
      LINK(VornForeignKey, addCandidateKey(b), candidateKey, VornCandidateKey, foreignKeyCollection),
      LINK(VornForeignKey, addAssociationRole(b), associationRole, VornAssociationRole, foreignKeyCollection),
      LINK(VornForeignKey, addGeneralizationRole(b), generalizationRole, VornGeneralizationRole,
           foreignKeyCollection),
      LINK(VornAssociationRole, addAssociatedClass(b), associatedClass, VornClass, associationRoleCollection),
      LINK(VornAssociationRoleNameMap, addSourceAttribute(b), sourceAttribute, VornAttribute,
           sourceRoleNameMapCollection),
      LINK(VornAssociationRoleNameMap, addDestinationAttribute(b), destinationAttribute, VornAttribute,
           destinationRoleNameMapCollection),
      LINK(VornClass, addPrimaryCandidateKey(b), primaryCandidateKey, VornCandidateKey, primaryOf),
      LINK(VornIndex, addKey(b), key, VornForeignKey, index),
      LINK(VornCandidateKey, addAttribute(b), attributeCollection, VornAttribute, keyCollection),
      LINK(VornDatabaseSchema, addImportedNamespaceElement(b), importedElementCollection, VornClass,
           importingPackageCollection),
      LINK(VornClassDiagram, addModelElement(b), modelElementCollection, VornAssociation, diagramCollection),
      LINK(VornSQLViewEntity, addSourceElement(b), sourceElementCollection, VornSQLViewEntity,
           readingViewCollection),
      LINK(VornAssociation, addAssociationRole(b), roleCollection, VornAssociationRole, ownerEnd())};
}

TEST(Links, AreGoneWhenEitherSideIsDestroyed) {
  for (const LinkKind& kind : allKinds()) {
    SCOPED_TRACE(kind.name);
    auto a = kind.makeA();
    auto b = kind.makeB();
    kind.link(*a, *b);
    EXPECT_THAT(kind.atA(*a), ElementsAre(b.get()));
    EXPECT_THAT(kind.atB(*b), ElementsAre(a.get()));
    b.reset();
    EXPECT_THAT(kind.atA(*a), IsEmpty());
    b = kind.makeB();
    kind.link(*a, *b);
    a.reset();
    EXPECT_THAT(kind.atB(*b), IsEmpty());
  }
}

TEST(Links, OfAnOwnerGoWithItsMembersAndTakeThemAlong) {
  const LinkKind kinds[] = {
      LINK(VornClass, addNote(b), noteCollection, VornNote, ownerEnd()),
      LINK(VornClass, addSynonym(b), synonymCollection, VornSynonym, ownerEnd()),
      LINK(VornClass, addFeatureUniqueName(b, '/'), featureCollection, VornAttribute, ownerEnd()),
      LINK(VornClass, addKey(b), keyCollection, VornForeignKey, ownerEnd()),
      LINK(VornClass, addIndex(b), indexCollection, VornIndex, ownerEnd()),
      LINK(VornIndex, addIndexMember(b), indexMemberCollection, VornIndexMember, ownerEnd()),
      LINK(VornForeignKey, addAssociationRoleNameMap(b), roleNameMapCollection, VornAssociationRoleNameMap,
           ownerEnd()),
      LINK(VornDatabaseSchema, addNamespaceElementUniqueName(b, '/'), elementCollection, VornClass,
           ownerEnd()),
      LINK(VornDesignPackage, addDiagram(b), diagramCollection, VornClassDiagram, ownerEnd()),
      LINK(VornStoreModel, addType(b), typeCollection, VornDerivedType, ownerEnd()),
      LINK(VornStoreModel, addMetadataOrigin(b), metadataOriginCollection, VornMetadataOrigin, ownerEnd()),
      LINK(VornStoreModel, addDesignPackage(b), designPackageCollection, VornDesignPackage, ownerEnd()),
      LINK(VornStoreModel, addDataPackage(b), dataPackageCollection, VornDatabaseSchema, ownerEnd())};
  for (const LinkKind& kind : kinds) {
    SCOPED_TRACE(kind.name);
    const auto first = kind.makeA();
    const auto second = kind.makeA();
    VornObject* const member = kind.makeB().release();
    for (VornObject* owner : {first.get(), second.get(), second.get()}) {
      kind.link(*owner, *member);
      EXPECT_EQ(member->getOwner(), owner);
      EXPECT_THAT(kind.atA(*owner), ElementsAre(member));
    }
    EXPECT_THAT(kind.atA(*first), IsEmpty());
    delete member;
    EXPECT_THAT(kind.atA(*second), IsEmpty());
    kind.link(*first, *kind.makeB().release());  // a leak unless it goes with its owner
  }
}

TEST(Links, MoveARoleFromOneAssociationToAnother) {
  VornClass table;
  VornAssociationRole role;
  VornAssociation first;
  role.addAssociatedClass(&table);
  first.addAssociationRole(&role);
  {
    VornAssociation second;
    second.addAssociationRole(&role);
    EXPECT_EQ(first.roleCollection.count(), 0U);
    EXPECT_EQ(role.getOwner(), &second);
    EXPECT_EQ(role.associatedClass, &table);
  }
  EXPECT_EQ(role.getOwner(), nullptr);
  EXPECT_EQ(role.associatedClass, nullptr)
      << "an association that goes detaches its roles from their classes";
  EXPECT_EQ(table.associationRoleCollection.count(), 0U);
}

TEST(Links, MayBeTakenOutDuringAWalk) {
  VornBaseType type;
  std::vector<std::unique_ptr<VornAttribute>> columns;
  for (std::int16_t position = 0; position < 100; ++position) {
    columns.push_back(std::make_unique<VornAttribute>());
    columns.back()->position = position;
    columns.back()->addType(&type);
  }
  std::vector<int> visited;
  for (const VornFeature* feature : type.featureCollection) {
    const int position = static_cast<const VornAttribute*>(feature)->position;
    visited.push_back(position);
    for (const int going : {position, position + 1, 98}) {  // the current one, the next, one far ahead
      columns[static_cast<std::size_t>(std::min(going, 99))].reset();
    }
  }
  std::vector<int> expected;
  for (int position = 0; position < 98; position += 2) {
    expected.push_back(position);
  }
  expected.push_back(99);
  EXPECT_EQ(visited, expected);
  EXPECT_EQ(type.featureCollection.count(), 0U);
}

// The links of one kind as they would be written down.
struct Relation {
  std::map<const VornObject*, Objects> atA;
  std::map<const VornObject*, Objects> atB;

  void link(const VornObject* a, const VornObject* b, const LinkKind& kind) {
    if (std::count(atA[a].begin(), atA[a].end(), b) > 0) {
      return;
    }
    if (!kind.manyAtA) {
      forget(atA, a, atB);
    }
    if (!kind.manyAtB) {
      forget(atB, b, atA);
    }
    atA[a].push_back(b);
    atB[b].push_back(a);
  }
  void clearA(const VornObject* a) { forget(atA, a, atB); }
  void forget(const VornObject* object) {
    forget(atA, object, atB);
    forget(atB, object, atA);
  }

 private:
  using Side = std::map<const VornObject*, Objects>;
  static void forget(Side& side, const VornObject* object, Side& otherSide) {
    for (const VornObject* other : std::exchange(side[object], {})) {
      std::erase(otherSide[other], object);
    }
  }
};

// Some objects of every class, as far as possible in a model, linked and destroyed at random.
class RandomObjects {
 public:
  explicit RandomObjects(unsigned seed) : random_(seed) {
    model_.addDesignPackage(package_);
    package_->addNamespaceElementUniqueName(table_, '/');
    table_->addIndex(index_);
    for (const LinkKind& kind : kinds_) {
      for (const auto& make : {kind.makeA, kind.makeB}) {
        auto& pool = pools_[make()->getElementType()];
        while (pool.size() < 25) {
          pool.push_back(place(make()));
        }
      }
    }
  }
  ~RandomObjects() {
    for (auto& [type, pool] : pools_) {
      for (const VornObject* object : pool) {
        delete object;
      }
    }
  }

  void step() {
    const std::size_t number = random_() % kinds_.size();
    const LinkKind& kind = kinds_[number];
    // Few on one side, so that they get many links.
    const bool fewAs = random_() % 2 == 0;
    VornObject*& a = pick(kind.makeA, fewAs ? 4 : 25);
    VornObject*& b = pick(kind.makeB, fewAs ? 25 : 4);
    const auto die = random_() % 60;
    if (die == 0) {
      replace(a, kind.makeA);
    } else if (die == 1) {
      replace(b, kind.makeB);
    } else if (die == 2) {
      kind.clearA(*a);
      relations_[number].clearA(a);
    } else {
      kind.link(*a, *b);
      relations_[number].link(a, b, kind);
    }
  }

  void check() {
    for (std::size_t number = 0; number < kinds_.size(); ++number) {
      SCOPED_TRACE(kinds_[number].name);
      for (VornObject* a : poolOf(kinds_[number].makeA)) {
        ASSERT_EQ(kinds_[number].atA(*a), relations_[number].atA[a]);
      }
      for (VornObject* b : poolOf(kinds_[number].makeB)) {
        ASSERT_EQ(kinds_[number].atB(*b), relations_[number].atB[b]);
      }
    }
    // Random links do not make sense to the verifier, but they must hold.
    for (const std::string& problem : verifyModel(model_)) {
      ASSERT_THAT(problem, Not(AnyOf(HasSubstr("lead back"), HasSubstr("own what it holds"))));
    }
  }

 private:
  using Make = std::function<std::unique_ptr<VornObject>()>;

  std::vector<VornObject*>& poolOf(const Make& make) { return pools_[make()->getElementType()]; }
  VornObject*& pick(const Make& make, std::size_t count) { return poolOf(make)[random_() % count]; }

  VornObject* place(std::unique_ptr<VornObject> made) {
    VornObject* object = made.release();
    if (auto* feature = dynamic_cast<VornFeature*>(object)) {
      table_->addFeatureUniqueName(feature, '/');
    } else if (auto* key = dynamic_cast<VornKey*>(object)) {
      table_->addKey(key);
    } else if (auto* member = dynamic_cast<VornIndexMember*>(object)) {
      index_->addIndexMember(member);
    } else if (auto* type = dynamic_cast<VornType*>(object)) {
      model_.addType(type);
    } else if (auto* element = dynamic_cast<VornNamespaceElement*>(object)) {
      package_->addNamespaceElementUniqueName(element, '/');
    } else if (auto* diagram = dynamic_cast<VornDiagram*>(object)) {
      package_->addDiagram(diagram);
    }
    return object;
  }

  void replace(VornObject*& object, const Make& make) {
    if (auto* association = dynamic_cast<VornAssociation*>(object)) {
      for (const VornObject* role : association->roleCollection) {  // they lose their classes
        const auto classOf = std::find_if(kinds_.begin(), kinds_.end(), [](const LinkKind& kind) {
          return std::string_view(kind.name) == "VornAssociationRole::addAssociatedClass(b)";
        });
        relations_[static_cast<std::size_t>(classOf - kinds_.begin())].forget(role);
      }
    }
    for (Relation& relation : relations_) {
      relation.forget(object);
    }
    delete object;
    object = place(make());
  }

  std::mt19937 random_;
  VornStoreModel model_;
  VornDesignPackage* package_ = new VornDesignPackage();
  VornClass* table_ = new VornClass();
  VornIndex* index_ = new VornIndex();
  std::vector<LinkKind> kinds_ = allKinds();
  std::vector<Relation> relations_{kinds_.size()};
  std::map<VornElementType, std::vector<VornObject*>> pools_;
};

TEST(Links, AgreeWithWhatIsWrittenDownOfThemWhateverIsDone) {
  for (const unsigned seed : {1U, 2U}) {
    SCOPED_TRACE(seed);
    RandomObjects objects(seed);
    for (int i = 1; i <= 12000; ++i) {
      objects.step();
      if (i % 100 == 0) {
        ASSERT_NO_FATAL_FAILURE(objects.check()) << "after step " << i;
      }
    }
  }
}

}  // namespace
