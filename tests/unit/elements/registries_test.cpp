#include "elements/registries.h"

#include "../support.h"
#include "host/metamodel/classifier.h"

namespace silrdm {
namespace {

TEST(Registries, OrderIdentifiersByBytesWithoutSign) {
  const std::vector<std::string> ordered = {"",  "10", "9",  "A",  "A ",    "AB",    "B",
                                            "a", "a ", "aa", "a~", "a\x80", "a\xFF", "\xC3"};
  std::vector<std::unique_ptr<SILRDMDataType>> elements;
  SILElementRegistry<SILRDMDataType> registry;
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    elements.push_back(std::make_unique<SILRDMDataType>(ordered[i * 5 % ordered.size()].c_str()));
    registry.add(elements.back().get());
  }
  std::vector<std::string> walked;
  for (const SILRDMDataType* element : registry) {
    walked.emplace_back(element->identifier.view());
    EXPECT_EQ(registry.findFirst(element->identifier), element);
  }
  EXPECT_EQ(walked, ordered);
  for (const char* missing : {" ", "b", "ab", "A  ", "B ", "a\x7F", "\xC3\xA9"}) {
    EXPECT_EQ(registry.findFirst(missing), nullptr) << missing;
  }
}

TEST(Registries, FindTheFirstOfSeveralRecordsWithOneIdentifier) {
  SILObjectRegistry<VornClass> registry;
  EXPECT_EQ(registry.findFirst("7"), nullptr);
  std::vector<Parsed<VornClass>> tables;
  for (const char* identifier : {"8", "7", "7", "6", "7"}) {
    tables.push_back(makeParsed<VornClass, SILRDMEntity>(identifier));
    tables.back()->setName("6");  // its name is not what it is found by
    registry.add(tables.back().get());
  }
  std::vector<const VornClass*> walked;
  for (const VornClass* table : registry) {
    walked.push_back(table);
  }
  EXPECT_EQ(registry.findFirst("7"), tables[1].get());
  EXPECT_THAT(walked, testing::ElementsAre(tables[3].get(), tables[1].get(), tables[2].get(), tables[4].get(),
                                           tables[0].get()));
}

}  // namespace
}  // namespace silrdm
