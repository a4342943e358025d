#include "bridge/elements/registries.h"

#include <map>

#include "tests/support.h"

namespace silrdm {
namespace {

// Held against a standard container, while half of what is left goes, again and again.
TEST(Registries, OrderIdentifiersByBytesWithoutSignAndEqualOnesByAge) {
  const std::string identifiers[] = {"",          "9",         "10",         "A",     "A ",
                                     "AB",        "a",         "a\x7F",      "a\x80", "long one",
                                     "long one1", "long one2", "long one20", "\xC3",  "\xC4"};
  std::mt19937 random(1);
  std::multimap<std::string, SILRDMElement*> expected;
  SILElementRegistry<SILRDMDataType> registry;
  for (int i = 0; i < 500; ++i) {
    const std::string& identifier = identifiers[random() % std::size(identifiers)];
    auto element = std::make_unique<SILRDMDataType>(identifier.c_str(), RecordPlace());
    expected.emplace(identifier, element.get());
    registry.add(std::move(element));
  }
  for (int round = 0; round < 7; ++round) {
    auto place = registry.begin();
    for (auto entry = expected.begin(); entry != expected.end();) {
      ASSERT_EQ(place.get(), entry->second);
      if (random() % 2 == 0) {
        ASSERT_EQ(registry.take(place).get(), entry->second);
        entry = expected.erase(entry);
      } else {
        ++place;
        ++entry;
      }
    }
    EXPECT_EQ(registry.take(place), nullptr);
    std::map<std::string, SILRDMElement*> oldest(expected.begin(), expected.end());
    for (const std::string& identifier : identifiers) {
      EXPECT_EQ(registry.findFirst(identifier.c_str()), oldest[identifier]);
    }
  }
}

}  // namespace
}  // namespace silrdm
