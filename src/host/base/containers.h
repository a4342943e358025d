// The host's containers of untyped pointers. They hold what they are given and own none of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <vector>

#include "host/base/text.h"

// What the containers share. An ordered container asks its subclass how objects and keys compare.
class VornContainer {
 public:
  VornContainer() = default;
  VornContainer(const VornContainer&) = delete;
  VornContainer& operator=(const VornContainer&) = delete;
  virtual ~VornContainer();

  virtual std::size_t getCount() const = 0;
  // Removes every entry and destroys no object.
  virtual void empty() = 0;

 protected:
  // Compares two objects: negative, 0 or positive. By address unless overridden.
  virtual int compare2Object(const void* first, const void* second) const;
  // Compares an object to a key. The key is an object unless overridden.
  virtual int compare2Key(const void* object, const void* key) const;
};

// An ordered tree. Entries that compare equal keep the order in which they were added.
//
// It is kept as an array, because most are filled in order, walked often and searched all the time. What was
// added out of order is put in place when the tree is next searched or walked.
class VornRBTree : public VornContainer {
 public:
  // Refers to one entry of a tree, or to its end. Adding to the tree invalidates it.
  class Iterator {
   public:
    // On the first entry of `tree`; with `ascending` false on the last, and `next` goes backwards.
    explicit Iterator(VornRBTree& tree, bool ascending = true);

    // The current entry, or null at the end.
    void* get() const { return place_ < tree_->entries_.size() ? tree_->entries_[place_].object : nullptr; }
    // Moves to the next entry and returns it, or null at the end.
    void* next();

   private:
    friend class VornRBTree;
    void goBack();

    VornRBTree* tree_;
    bool ascending_;
    std::size_t place_;
  };

  VornRBTree() = default;
  ~VornRBTree() override;

  std::size_t getCount() const override { return entries_.size() - removed_; }
  void empty() override;

  // Adds `object` after the entries that compare equal to it and moves `iterator`, if given, to it. `unique`
  // is ignored. Constant time if the object belongs at the end, or without an iterator. Returns true.
  bool add(void* object, bool unique, Iterator* iterator);
  // Returns the oldest entry that compares equal to `key`, or null. Moves `iterator`, if given, to it.
  void* findFirst(const void* key, Iterator* iterator);
  // Removes the entry at `iterator` and returns it. Moves the iterator to the next entry.
  void* remove(Iterator& iterator);
  // Hands every entry to `handle`, in no particular order.
  template <class Handle>
  void forEach(Handle handle) const {
    for (const Entry& entry : entries_) {
      if (entry.object != nullptr) {
        handle(entry.object);
      }
    }
  }
  // Puts what was added in order. Until then entries are compared when the tree is searched or walked.
  void sort();

 protected:
  // A number for an object or a key that is less where it compares less. Two that have the same even number
  // are equal; two that have the same odd one are compared. Unless overridden, an odd one for all.
  virtual std::uint64_t rankObject(const void* object) const;
  virtual std::uint64_t rankKey(const void* key) const;

 private:
  struct Entry {
    std::uint64_t rank;
    void* object;  // null once it was taken out
  };

  bool isLess(const Entry& first, const Entry& second) const;
  static bool tellsAll(std::uint64_t rank) { return rank % 2 == 0; }
  // The first entry at `place` or later that was not removed.
  std::size_t skipRemoved(std::size_t place);
  // The first entry whose rank is not less.
  std::size_t findRank(std::uint64_t rank) const;
  // The first entry from `first` on, whose rank is the key's, that does not compare less.
  std::size_t findAmongSameRank(std::size_t first, const void* key);

  std::vector<Entry> entries_;
  std::size_t sorted_ = 0;  // up to here the entries are in order
  std::size_t removed_ = 0;
  std::size_t lastFound_ = 0;
  // Skip links: for a removed entry an index up to which all entries are removed. Empty until one is removed.
  std::vector<std::uint32_t> behind_;
};

// Access by number, independent of the kind of container.
class VornArrayInterface {
 public:
  VornArrayInterface() = default;
  VornArrayInterface(const VornArrayInterface&) = default;
  VornArrayInterface& operator=(const VornArrayInterface&) = default;
  virtual ~VornArrayInterface();
  // The entry number `index`, counted from 0; `index` is below the count.
  virtual void* operator[](std::size_t index) const = 0;
};

// A growing array.
class VornVector : public VornContainer, public VornArrayInterface {
 public:
  VornVector() = default;
  ~VornVector() override;

  std::size_t getCount() const override { return entries_.size(); }
  void empty() override { entries_.clear(); }
  void* operator[](std::size_t index) const override { return entries_[index]; }

  // Puts `object` at the end, or at the front when `atEnd` is false. Returns true.
  bool add(void* object, bool atEnd = true);

 private:
  std::vector<void*> entries_;
};

// The number of buckets that the sets below start with.
class VornHashtable {
 protected:
  explicit VornHashtable(std::size_t buckets) : texts_(buckets) {}
  ~VornHashtable() = default;

  std::unordered_set<VornString> texts_;
};

// A set of texts.
class VornStringHashSet : private VornHashtable {
 public:
  // `buckets` is where the set starts; it grows with its texts.
  explicit VornStringHashSet(std::size_t buckets) : VornHashtable(buckets) {}

  // True when the text was new.
  bool add(const VornString& text) { return texts_.insert(text).second; }
  bool contains(const VornString& text) const { return texts_.contains(text); }
  void clear() { texts_.clear(); }
};
