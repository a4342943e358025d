#include "host/metamodel/classifier.h"
#include "host/metamodel/package.h"
#include "tests/support.h"

namespace {

using Members = std::vector<VornClass*>;

VornClass* findIn(const Members& members, const std::string& name) {
  const auto named = [&](const VornClass* member) { return member->getName() == name.c_str(); };
  const auto found = std::find_if(members.begin(), members.end(), named);
  return found == members.end() ? nullptr : *found;
}

// Two packages whose members come, go, move and are renamed at random; lists of them tell what is right.
TEST(Names, AreMadeUniqueAndFoundWhateverWasDoneBefore) {
  const std::string names[] = {"a", "a", "a/2", "a/3", "a/3/2", "a/11", "a/02", "a-2", ""};
  std::mt19937 random(1);
  VornDesignPackage packages[2];
  Members members[2];
  for (int step = 0; step < 10000; ++step) {
    const std::size_t side = random() % 2;
    const std::string& name = names[random() % std::size(names)];
    Members& from = members[1 - side];
    VornClass* member = nullptr;
    if (from.size() < 15) {
      member = new VornClass();
      member->setName(name.c_str());
    } else {
      const auto place = from.begin() + static_cast<std::ptrdiff_t>(random() % from.size());
      const auto dice = random() % 3;
      if (dice == 0) {
        (*place)->setName(name.c_str());
        continue;
      }
      member = *place;
      from.erase(place);
      if (dice == 1) {
        delete member;
        continue;
      }
    }
    const char separator = random() % 4 == 0 ? '-' : '/';
    const std::string given(member->getName().view());
    std::string expected = given;
    for (int number = 2; !given.empty() && findIn(members[side], expected) != nullptr; ++number) {
      expected = given + separator + std::to_string(number);
    }
    EXPECT_TRUE(packages[side].addNamespaceElementUniqueName(member, separator));
    ASSERT_EQ(member->getName().view(), expected) << step;
    members[side].push_back(member);
    for (const std::string& any : names) {
      ASSERT_EQ(packages[side].elementCollection.get(any.c_str()), findIn(members[side], any)) << step;
    }
  }
}

}  // namespace
