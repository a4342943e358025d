#include <random>
#include <set>

#include "../../support.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/package.h"

namespace {

VornClass* addTable(VornNamespace& package, const char* name) {
  auto* table = new VornClass();
  table->setName(name);
  EXPECT_TRUE(package.addNamespaceElementUniqueName(table, '/'));
  return table;
}

std::vector<std::string> namesIn(const VornMany<VornNamespaceElement>& elements) {
  std::vector<std::string> names;
  for (const VornNamespaceElement* element : elements) {
    names.emplace_back(element->getName().view());
  }
  return names;
}

TEST(UniqueNames, TakeTheSmallestFreeInteger) {
  using Names = std::vector<std::string>;
  const std::pair<Names, Names> cases[] = {
      {{"Order", "Order", "Order"}, {"Order", "Order/2", "Order/3"}},
      {{"Order/2", "Order", "Order"}, {"Order/2", "Order", "Order/3"}},
      {{"Order", "Order/2", "Order/2", "Order"}, {"Order", "Order/2", "Order/2/2", "Order/3"}},
      {{"Order/1", "Order/02", "Order", "Order"}, {"Order/1", "Order/02", "Order", "Order/2"}},
      {{"Order", "order", "Order "}, {"Order", "order", "Order "}},
      {{"2", "2", "2/2"}, {"2", "2/2", "2/2/2"}},
      {{"", "", ""}, {"", "", ""}}};
  for (const auto& [given, expected] : cases) {
    SCOPED_TRACE(testing::PrintToString(given));
    VornDesignPackage package;
    for (const std::string& name : given) {
      addTable(package, name.c_str());
    }
    EXPECT_EQ(namesIn(package.elementCollection), expected);
  }
}

TEST(UniqueNames, GiveBackTheNumberOfARemovedOrRenamedMember) {
  VornDesignPackage package;
  std::vector<VornClass*> tables;
  for (int i = 1; i <= 6; ++i) {
    tables.push_back(addTable(package, "Order"));
  }
  delete tables[4];               // Order/5
  tables[2]->setName("Renamed");  // Order/3
  package.elementCollection.get("Order/2")->setName("Order/5");
  EXPECT_EQ(addTable(package, "Order")->getName(), "Order/2");
  EXPECT_EQ(addTable(package, "Order")->getName(), "Order/3");
  EXPECT_EQ(addTable(package, "Order")->getName(), "Order/7");
  delete tables[0];
  EXPECT_EQ(addTable(package, "Order")->getName(), "Order");
}

TEST(UniqueNames, AreTheSameWhenAskedForTwice) {
  VornDesignPackage package;
  std::vector<VornClass*> tables;
  for (int i = 1; i <= 4; ++i) {
    tables.push_back(addTable(package, "Order"));
  }
  delete tables[1];
  EXPECT_EQ(package.elementCollection.makeUnique("Order", '/'), "Order/2");
  EXPECT_EQ(package.elementCollection.makeUnique("Order", '/'), "Order/2");
  EXPECT_EQ(package.elementCollection.makeUnique("Order", '-'), "Order-2");
}

TEST(UniqueNames, LeaveAMemberAlone) {
  VornDesignPackage package;
  VornClass* const table = addTable(package, "Order");
  EXPECT_FALSE(package.addNamespaceElementUniqueName(table, '/'));
  auto* const column = new VornAttribute();
  column->setName("Order");  // a table's columns have names of their own
  EXPECT_TRUE(table->addFeatureUniqueName(column, '/'));
  EXPECT_FALSE(table->addFeatureUniqueName(column, '/'));
  EXPECT_EQ(table->getName(), "Order");
  EXPECT_EQ(column->getName(), "Order");
}

TEST(UniqueNames, FollowAMemberToAnotherOwner) {
  VornDesignPackage package;
  VornDatabaseSchema schema;
  VornClass* const table = addTable(package, "Order");
  addTable(schema, "Order");
  EXPECT_TRUE(schema.addNamespaceElementUniqueName(table, '/'));
  EXPECT_EQ(table->getName(), "Order/2");
  EXPECT_EQ(package.elementCollection.get("Order"), nullptr);
  EXPECT_EQ(package.elementCollection.get("Order/2"), nullptr);
  EXPECT_EQ(schema.elementCollection.get("Order/2"), table);
}

// The index of names may have been made at any time before: it must not show.
TEST(NameLookUp, GivesTheFirstAddedWhateverWasRenamed) {
  for (const bool lookedUpBefore : {false, true}) {
    SCOPED_TRACE(lookedUpBefore);
    VornClass table;
    std::vector<VornCandidateKey*> keys;
    for (const char* name : {"a", "b", "b", "c", "b"}) {
      keys.push_back(new VornCandidateKey());
      keys.back()->setName(name);
      table.addKey(keys.back());
    }
    if (lookedUpBefore) {
      EXPECT_EQ(table.keyCollection.get("b"), keys[1]);
    }
    keys[0]->setName("b");
    EXPECT_EQ(table.keyCollection.get("b"), keys[0]);
    keys[4]->setName("b");
    EXPECT_EQ(table.keyCollection.get("b"), keys[0]);
    delete keys[0];
    EXPECT_EQ(table.keyCollection.get("b"), keys[1]);
    delete keys[2];
    keys[1]->setName("c");
    EXPECT_EQ(table.keyCollection.get("b"), keys[4]);
    EXPECT_EQ(table.keyCollection.get("c"), keys[1]);
    delete keys[4];
    EXPECT_EQ(table.keyCollection.get("b"), nullptr);
    EXPECT_EQ(table.keyCollection.get("a"), nullptr);
  }
}

TEST(UniqueNames, AreTheSmallestFreeOnesWhateverWasDoneBefore) {
  std::mt19937 random(1);
  VornDesignPackage package;
  std::set<std::string> taken;
  std::vector<VornClass*> tables;
  for (int i = 0; i < 5000; ++i) {
    if (tables.size() > 30 || (!tables.empty() && random() % 3 == 0)) {
      const auto going = tables.begin() + static_cast<std::ptrdiff_t>(random() % tables.size());
      taken.erase(std::string((*going)->getName().view()));
      delete *going;
      tables.erase(going);
      continue;
    }
    const char* const names[] = {"a", "a", "a/2", "a/3", "a/3/2", "a/11"};
    const std::string name = names[random() % std::size(names)];
    std::string expected = name;
    for (int number = 2; taken.contains(expected); ++number) {
      expected = name + "/" + std::to_string(number);
    }
    tables.push_back(addTable(package, name.c_str()));
    ASSERT_EQ(tables.back()->getName(), expected.c_str()) << "step " << i;
    taken.insert(expected);
  }
}

// Would take minutes if a step cost as much as there are members.
TEST(UniqueNames, AreFoundInConstantTime) {
  constexpr int kMany = 100'000;
  VornDesignPackage package;
  std::vector<VornClass*> tables;
  for (int i = 0; i < kMany; ++i) {
    tables.push_back(addTable(package, "Order"));
  }
  EXPECT_EQ(tables.back()->getName(), "Order/100000");
  for (int i = 0; i < kMany; ++i) {
    VornClass*& table = tables[static_cast<std::size_t>(i)];
    const VornString name = table->getName();
    delete table;
    table = addTable(package, "Order");
    ASSERT_EQ(table->getName(), name);
  }
  VornClass owner;
  std::vector<VornCandidateKey*> keys;
  for (int i = 0; i < kMany; ++i) {
    keys.push_back(new VornCandidateKey());
    owner.addKey(keys.back());
    ASSERT_EQ(owner.keyCollection.get(""), keys.front());
  }
  for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
    delete keys[i];
    ASSERT_EQ(owner.keyCollection.get(""), keys[i + 1]);
  }
}

}  // namespace
