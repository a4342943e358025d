#include "host/metamodel/links.h"

#include <functional>
#include <map>

#include "host/metamodel/link_pairs.h"
#include "tests/support.h"

namespace {

using Objects = std::vector<const VornObject*>;

Objects heldBy(const VornLinkOne& end) {
  return end.getObject() == nullptr ? Objects{} : Objects{end.getObject()};
}

template <class T>
Objects heldBy(const VornMany<T>& end) {
  Objects objects;
  for (std::size_t i = 0; i < end.count(); ++i) {
    objects.push_back(end[i]);
    EXPECT_TRUE(end.contains(*end[i]));
  }
  return objects;
}

// Makes and takes out links of one kind at random and holds them against a list of those there should be.
template <class A, class B>
void linkAtRandom(auto link, auto endOfA, auto endOfB) {
  std::mt19937 random(1);
  std::vector<A*> as;
  std::vector<B*> bs;
  for (int i = 0; i < 30; ++i) {
    as.push_back(new A());
    bs.push_back(new B());
  }
  std::vector<std::pair<A*, B*>> links;
  for (int step = 1; step <= 2000; ++step) {
    A*& a = as[random() % (step % 2 == 0 ? 3 : 30)];  // few on one side, so that they get many links
    B*& b = bs[random() % (step % 2 == 0 ? 30 : 3)];
    const auto dice = random() % 30;
    if (dice == 0) {
      for (B*& member : bs) {
        member = member->getOwner() == a ? new B() : member;  // those it owns go along
      }
      std::erase_if(links, [&](const auto& other) { return other.first == a; });
      delete a;
      a = new A();
    } else if (dice == 1) {
      std::erase_if(links, [&](const auto& other) { return other.second == b; });
      delete b;
      b = new B();
    } else {
      std::invoke(link, *a, b);
      if (std::find(links.begin(), links.end(), std::pair(a, b)) == links.end()) {
        std::erase_if(links, [&](const auto& other) {  // an end for one link drops the link it held
          return (other.first == a && requires { std::invoke(endOfA, *a).getObject(); }) ||
                 (other.second == b && requires { std::invoke(endOfB, *b).getObject(); });
        });
        links.emplace_back(a, b);
      }
    }
    if (step % 20 == 0) {
      std::map<const VornObject*, Objects> expected;
      for (const auto& [heldByB, heldByA] : links) {
        expected[heldByB].push_back(heldByA);
        expected[heldByA].push_back(heldByB);
      }
      for (std::size_t i = 0; i < as.size(); ++i) {
        ASSERT_EQ(heldBy(std::invoke(endOfA, *as[i])), expected[as[i]]) << step;
        ASSERT_EQ(heldBy(std::invoke(endOfB, *bs[i])), expected[bs[i]]) << step;
      }
    }
  }
  std::for_each(bs.begin(), bs.end(), std::default_delete<B>());
  std::for_each(as.begin(), as.end(), std::default_delete<A>());
}

TEST(Links, AgreeWithAListOfThemWhateverIsDone) {
  linkAtRandom<VornAttribute, VornBaseType>(&VornAttribute::addType, &VornAttribute::type,
                                            &VornBaseType::featureCollection);
  linkAtRandom<VornAttribute, VornIndexMember>(
      &VornAttribute::addIndexMember, &VornAttribute::indexMemberCollection, &VornIndexMember::attribute);
  linkAtRandom<VornClass, VornCandidateKey>(&VornClass::addPrimaryCandidateKey,
                                            &VornClass::primaryCandidateKey, &VornCandidateKey::primaryOf);
  linkAtRandom<VornCandidateKey, VornAttribute>(
      &VornCandidateKey::addAttribute, &VornCandidateKey::attributeCollection, &VornAttribute::keyCollection);
  linkAtRandom<VornClass, VornForeignKey>([](VornClass& table, VornForeignKey* key) { table.addKey(key); },
                                          &VornClass::keyCollection,
                                          [](VornForeignKey& key) -> VornLinkOne& { return key.ownerEnd(); });
}

template <auto kEnd, class A, class B>
constexpr bool kCanConnect = requires(A& a, B& b) {
  connect<kEnd>(a, b);
};

TEST(Links, ConnectOnlyEndsThatBelongTogether) {
  static_assert(kCanConnect<&VornFeature::type, VornAttribute, VornBaseType>);
  static_assert(kCanConnect<&VornForeignKey::candidateKey, VornForeignKey, VornCandidateKey>);
  static_assert(!kCanConnect<&VornFeature::type, VornAttribute, VornCandidateKey>);  // another class
  static_assert(
      !kCanConnect<&VornForeignKey::candidateKey, VornCandidateKey, VornForeignKey>);  // turned round
  static_assert(!kCanConnect<&VornForeignKey::candidateKey, VornForeignKey, VornForeignKey>);
  static_assert(!kCanConnect<&VornClass::keyCollection, VornClass, VornCandidateKey>);  // an owner's end
}

TEST(Links, MayBeTakenOutDuringAWalk) {
  VornBaseType type;
  std::vector<std::unique_ptr<VornAttribute>> columns(10);
  for (auto& column : columns) {
    column = std::make_unique<VornAttribute>();
    column->addType(&type);
  }
  std::size_t place = 0;
  for (const VornFeature* feature : type.featureCollection) {
    ASSERT_EQ(feature, columns[place].get());
    columns[place++].reset();
    columns[place++].reset();
  }
  EXPECT_EQ(place, columns.size());
}

}  // namespace
