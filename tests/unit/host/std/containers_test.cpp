#include "host/std/containers.h"

#include <random>

#include "../../support.h"
#include "host/std/date.h"

namespace {

struct Item {
  int key;
  int number;
};

class ItemTree final : public VornRBTree {
 public:
  std::vector<Item*> walk(bool ascending) {
    std::vector<Item*> items;
    for (Iterator place(*this, ascending); place.get() != nullptr; place.next()) {
      items.push_back(static_cast<Item*>(place.get()));
    }
    return items;
  }

 private:
  int compare2Object(const void* first, const void* second) const override {
    return static_cast<const Item*>(first)->key - static_cast<const Item*>(second)->key;
  }
  int compare2Key(const void* item, const void* key) const override {
    return static_cast<const Item*>(item)->key - *static_cast<const int*>(key);
  }
};

class VornRBTreeTest : public testing::Test {
 protected:
  VornRBTreeTest() {
    std::mt19937 random(1);
    items_.resize(2000);
    for (int number = 0; auto& item : items_) {
      item = {static_cast<int>(random() % 50) * 2, number++};
      tree_.add(&item, false, nullptr);
      sorted_.push_back(&item);
    }
    std::stable_sort(sorted_.begin(), sorted_.end(), [](auto* a, auto* b) { return a->key < b->key; });
  }

  std::vector<Item> items_;
  ItemTree tree_;
  std::vector<Item*> sorted_;
};

TEST_F(VornRBTreeTest, OrdersItsEntriesAndKeepsEqualOnesInTheOrderOfAdding) {
  EXPECT_EQ(tree_.walk(true), sorted_);
  EXPECT_EQ(tree_.walk(false), std::vector<Item*>(sorted_.rbegin(), sorted_.rend()));
  EXPECT_EQ(tree_.getCount(), items_.size());
}

TEST_F(VornRBTreeTest, FindsTheOldestOfEqualEntries) {
  for (int key = -1; key <= 100; ++key) {
    const auto oldest =
        std::find_if(items_.begin(), items_.end(), [&](Item& item) { return item.key == key; });
    EXPECT_EQ(tree_.findFirst(&key, nullptr), oldest == items_.end() ? nullptr : &*oldest) << key;
  }
}

TEST_F(VornRBTreeTest, StandsOnTheNextEntryAfterARemoval) {
  for (const bool ascending : {true, false}) {
    std::vector<Item*> left;
    VornRBTree::Iterator place(tree_, ascending);
    const std::vector<Item*> before = tree_.walk(ascending);
    for (std::size_t i = 0; i < before.size(); ++i) {
      ASSERT_EQ(place.get(), before[i]);
      if (i % 3 == 1) {
        left.push_back(before[i]);
        place.next();
      } else {
        ASSERT_EQ(tree_.remove(place), before[i]);
      }
    }
    EXPECT_EQ(tree_.remove(place), nullptr);
    EXPECT_EQ(place.next(), nullptr);
    EXPECT_EQ(tree_.walk(ascending), left);
  }
}

TEST_F(VornRBTreeTest, RemovesWhatWasFound) {
  const int key = sorted_.front()->key;
  VornRBTree::Iterator place(tree_);
  for (std::size_t i = 0; sorted_[i]->key == key; ++i) {
    ASSERT_EQ(tree_.findFirst(&key, &place), sorted_[i]);
    tree_.remove(place);
  }
  EXPECT_EQ(tree_.findFirst(&key, nullptr), nullptr);
  tree_.empty();
  EXPECT_THAT(tree_.walk(false), testing::IsEmpty());
}

TEST(VornStringHashSet, HoldsATextOnce) {
  VornStringHashSet texts(15);
  for (const bool isNew : {true, false}) {
    for (std::int32_t number = 0; number < 1000; ++number) {
      ASSERT_EQ(texts.add(VornString(number)), isNew);
    }
  }
  EXPECT_TRUE(texts.contains("999"));
  EXPECT_FALSE(texts.contains("1000"));
  texts.clear();
  EXPECT_FALSE(texts.contains("999"));
}

TEST(VornDate, StandsEightHoursBehindUtcAllTheYear) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {1795345445, "2026-11-22 03:04:05 PST"},  {1782887400, "2026-06-30 22:30:00 PST"},
      {1709193600, "2024-02-29 00:00:00 PST"},  {28800, "1970-01-01 00:00:00 PST"},
      {0, "1969-12-31 16:00:00 PST"},           {-1, "1969-12-31 15:59:59 PST"},
      {-2208988800, "1899-12-31 16:00:00 PST"}, {2147483648, "2038-01-18 19:14:08 PST"}};
  for (const auto& [seconds, timestamp] : cases) {
    EXPECT_EQ(VornDate(seconds).getPstTimestamp(), timestamp);
  }
}

}  // namespace
