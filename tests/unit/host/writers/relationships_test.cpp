#include "host/writers/common/relationships.h"

#include <sstream>

#include "gtest/gtest.h"
#include "host/metamodel/casting.h"

namespace {

// Three tables, of which the last two have a foreign key to the first that follows no relationship.
struct KeysOnly {
  VornStoreModel model;
  VornDesignPackage* package = new VornDesignPackage();
  VornClass* tables[3] = {};
  VornAttribute* columns[3] = {};
  VornCandidateKey* key = new VornCandidateKey();

  KeysOnly() {
    model.addDesignPackage(std::unique_ptr<VornDesignPackage>(package));
    for (int i = 0; i < 3; ++i) {
      tables[i] = new VornClass();
      tables[i]->setName(VornString(std::string(1, static_cast<char>('A' + i))));
      package->addNamespaceElementUniqueName(tables[i], '/');
      columns[i] = new VornAttribute();
      columns[i]->optional = true;
      tables[i]->addFeatureUniqueName(columns[i], '/');
    }
    tables[0]->addKey(key);
    key->addAttribute(columns[0]);
    for (int i = 1; i < 3; ++i) {
      auto* foreign = new VornForeignKey();
      tables[i]->addKey(foreign);
      foreign->addAttribute(columns[i]);
      foreign->addCandidateKey(key);
    }
  }

  // Makes the foreign key of table number `i` also the table's own key, or part of it.
  void makePrimary(int i, bool isWhole) {
    auto* own = new VornCandidateKey();
    tables[i]->addKey(own);
    tables[i]->addPrimaryCandidateKey(own);
    own->addAttribute(columns[i]);
    columns[i]->optional = false;
    if (!isWhole) {
      auto* more = new VornAttribute();
      tables[i]->addFeatureUniqueName(more, '/');
      own->addAttribute(more);
    }
  }

  std::string describe() const {
    std::ostringstream text;
    const Diagram diagram = makeDiagram(RelationalModel(model));
    const auto put = [&](const EndCount& count) {
      text << (count.isOptional ? '0' : '1') << (count.isMany ? '*' : '1');
    };
    for (const DiagramEdge& edge : diagram.edges) {
      text << edge.from->getName().c_str();
      put(edge.atFrom);
      text << (edge.isIdentifying ? "=" : "-");
      put(edge.atTo);
      text << edge.to->getName().c_str() << (edge.kind == DiagramEdge::Kind::inheritance ? "^ " : " ");
    }
    return text.str() + std::to_string(diagram.hubs.size());
  }
};

TEST(Diagram, TakesTheEndsOfAForeignKeyWithoutRelationshipFromItsColumns) {
  KeysOnly keys;
  EXPECT_EQ(keys.describe(), "A01-0*B A01-0*C 0");
  keys.makePrimary(1, true);
  keys.makePrimary(2, false);
  EXPECT_EQ(keys.describe(), "A11=01B A11=0*C 0");
  // One column that is unique is enough, and so is one that may be empty.
  auto* more = new VornAttribute();
  more->optional = true;
  keys.tables[1]->addFeatureUniqueName(more, '/');
  keys.tables[1]->keyCollection[0]->addAttribute(more);
  EXPECT_EQ(keys.describe(), "A01-01B A11=0*C 0");
}

TEST(Diagram, JoinsSeveralSupertypesWithTheirSubtypesInOneBox) {
  KeysOnly keys;
  auto* family = new VornGeneralization();
  family->setName("F");
  keys.package->addNamespaceElementUniqueName(family, '/');
  using Kind = VornGeneralizationRole::Kind;
  family->addRole(Kind::supertype, keys.tables[0]);
  auto* subtype = family->addRole(Kind::subtype, keys.tables[2]);
  cast<VornForeignKey>(keys.tables[2]->keyCollection[0])->addGeneralizationRole(subtype);
  EXPECT_EQ(keys.describe(), "A11=01C^ A01-0*B 0");
  family->addRole(Kind::supertype, keys.tables[1]);
  EXPECT_EQ(keys.describe(), "A11=01F^ B11=01F^ F11=01C^ A01-0*B 1");
}

}  // namespace
