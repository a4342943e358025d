// Links between the objects of a model: the mechanism of every member that refers to another object.
//
// A link joins two objects and is stored in an end of each. An end holds at most one link (VornOne) or any
// number in the order of creation (VornMany). Each of the two entries knows the place of its twin, so a link
// is removed in constant time from either side. The ends of a destroyed object remove its links from all
// other objects.
//
// Every object also has an end for its owner (VornObject::getOwner), which holds one link. VornOwned is a
// VornMany that is linked to the owner ends of its members and destroys them with itself.
//
//   class VornClass { VornOwned<VornKey> keyCollection; VornMany<VornAssociationRole> roleCollection; ... };
//   class VornAssociationRole { VornOne<VornClass> associatedClass; ... };
//   connect<&VornAssociationRole::associatedClass>(role, table);  // see link_pairs.h
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <span>

class VornObject;

// The place of an entry: an end and the index in it.
class VornLinkEnd;
struct VornLinkPlace {
  static constexpr std::uint32_t kOnly = UINT32_MAX;  // the end holds at most one link

  VornLinkEnd* end = nullptr;
  std::uint32_t slot = kOnly;
};

// One of the two entries of a link.
struct VornLinkEntry {
  VornObject* object = nullptr;  // at the other end; null: no link (any more)
  VornLinkPlace twin;            // place of the other entry
};

class VornLinkEnd {
 public:
  VornLinkEnd(const VornLinkEnd&) = delete;
  VornLinkEnd& operator=(const VornLinkEnd&) = delete;

 protected:
  VornLinkEnd() = default;
  ~VornLinkEnd() = default;
};

// An end that holds at most one link.
class VornLinkOne : public VornLinkEnd {
 public:
  VornLinkOne() = default;
  ~VornLinkOne() { clear(); }

  VornObject* getObject() const { return entry_.object; }
  const VornLinkEntry& getEntry() const { return entry_; }
  // Takes the link out of both its ends.
  void clear();

 private:
  friend class VornLinks;
  VornLinkEntry entry_;
};

// Finds members of an end. It is called when members are added and removed.
class VornMemberIndex {
 public:
  VornMemberIndex() = default;
  VornMemberIndex(const VornMemberIndex&) = delete;
  VornMemberIndex& operator=(const VornMemberIndex&) = delete;
  virtual ~VornMemberIndex();
  virtual void add(const VornObject& member) = 0;
  virtual void remove(const VornObject& member) noexcept = 0;
};

// The entries of an end that holds any number of links, allocated with its first link. The entries follow
// this object in memory.
class VornObjectCollection {
 public:
  // Walks the live entries. Links may be taken out during a walk, the current one too; not added.
  class Iterator {
   public:
    Iterator(const VornObjectCollection* collection, std::uint32_t slot)
        : collection_(collection), slot_(slot) {
      skipRemoved();
    }
    const VornLinkEntry& operator*() const { return collection_->entries()[slot_]; }
    Iterator& operator++() {
      ++slot_;
      skipRemoved();
      return *this;
    }
    bool operator==(std::default_sentinel_t /*end*/) const { return atEnd(); }

   private:
    bool atEnd() const { return collection_ == nullptr || slot_ >= collection_->size_; }
    void skipRemoved() {
      while (!atEnd() && collection_->entries()[slot_].object == nullptr) {
        ++slot_;
      }
    }
    const VornObjectCollection* collection_;
    std::uint32_t slot_;
  };

  VornObjectCollection(const VornObjectCollection&) = delete;
  VornObjectCollection& operator=(const VornObjectCollection&) = delete;

  std::size_t getCount() const { return size_ - removed_; }
  // With those that were taken out, which have no object; the last one always has one.
  std::span<const VornLinkEntry> getEntries() const { return {entries(), size_}; }
  // Makes a set of the members when it first looks for one among many: not for two threads at a time.
  bool contains(const VornObject& object) const;
  // The member number `index` in the order they were added; `index` is below the count. Constant time, but
  // for the first call after links were taken out, which closes the gaps.
  VornObject& at(std::size_t index);

  // Keeps `index`, which has the present members, up to date from now on; null drops the one there is.
  void setIndex(std::unique_ptr<VornMemberIndex> index);
  VornMemberIndex* getIndex() const;

 private:
  friend class VornLinkMany;
  friend class VornLinks;
  // What few collections need: to find members by.
  struct Finder;

  explicit VornObjectCollection(unsigned capacityExponent);
  ~VornObjectCollection();
  // With room for two to the power of that many entries.
  static VornObjectCollection* make(unsigned capacityExponent);
  static void destroy(VornObjectCollection* collection) noexcept;
  static std::size_t bytesFor(unsigned capacityExponent) {
    return sizeof(VornObjectCollection) + (sizeof(VornLinkEntry) << capacityExponent);
  }

  VornLinkEntry* entries() { return reinterpret_cast<VornLinkEntry*>(this + 1); }
  const VornLinkEntry* entries() const { return reinterpret_cast<const VornLinkEntry*>(this + 1); }
  Finder& finder() const;
  void closeGaps();

  static constexpr std::uint32_t kMost = std::uint32_t{1} << 27;  // links in one end

  std::uint32_t capacity() const { return std::uint32_t{1} << capacityExponent_; }

  // Kept small, because most collections hold one link.
  std::uint32_t size_ = 0;
  std::uint32_t removed_ : 27 = 0;
  std::uint32_t capacityExponent_ : 5;
  mutable std::unique_ptr<Finder> finder_;
};

// An end that holds any number of links, untyped; costs one pointer while it has never held any.
class VornLinkMany : public VornLinkEnd {
 public:
  VornLinkMany() = default;
  ~VornLinkMany() {
    if (collection_ != nullptr) {
      clear();
      VornObjectCollection::destroy(collection_);
    }
  }

  std::size_t count() const { return collection_ != nullptr ? collection_->getCount() : 0; }
  // Not for two threads at a time: see VornObjectCollection.
  bool contains(const VornObject& object) const {
    return collection_ != nullptr && collection_->contains(object);
  }
  // Takes all links out of both their ends.
  void clear();
  // Drops the links without updating their other ends, for objects that nobody uses or frees any more.
  void forget() { collection_ = nullptr; }

  // Null until the end holds its first link. Replaced when the end grows.
  VornObjectCollection* getCollection() const { return collection_; }

  // Walks the entries from `slot` on.
  VornObjectCollection::Iterator entries(std::uint32_t slot = 0) const { return {collection_, slot}; }

 private:
  friend class VornLinks;
  // Has room for one more entry.
  void makeRoom();
  void grow();

  VornObjectCollection* collection_ = nullptr;
};

// Making and taking out links, in constant time, amortised. Where memory runs out nothing is half linked.
class VornLinks {
 public:
  // Links `a` and `b` through their ends, whether or not these belong together: see connect in link_pairs.h.
  // Returns false, and changes nothing, if that link exists already.
  template <class EndOfA, class EndOfB>
  static bool join(VornObject& a, EndOfA& endOfA, VornObject& b, EndOfB& endOfB) {
    if (areConnected(a, endOfA, b, endOfB)) {
      return false;
    }
    const VornLinkPlace inA = prepare(endOfA);
    const VornLinkPlace inB = prepare(endOfB);
    enterBoth(a, inA, b, inB);
    return true;
  }

  // The entry at `place`.
  static VornLinkEntry& at(VornLinkPlace place) {
    return place.slot == VornLinkPlace::kOnly
               ? static_cast<VornLinkOne*>(place.end)->entry_
               : static_cast<VornLinkMany*>(place.end)->collection_->entries()[place.slot];
  }

  // Removes the link with an entry at `place` from both its ends; does nothing if there is none.
  static void disconnect(VornLinkPlace place);

 private:
  static bool areConnected(const VornObject& a, const VornLinkOne& endOfA, const VornObject& b,
                           const VornLinkOne& endOfB);
  static bool areConnected(const VornObject& a, const VornLinkMany& endOfA, const VornObject& b,
                           const VornLinkOne& endOfB);
  static bool areConnected(const VornObject& a, const VornLinkOne& endOfA, const VornObject& b,
                           const VornLinkMany& endOfB);
  static bool areConnected(const VornObject& a, const VornLinkMany& endOfA, const VornObject& b,
                           const VornLinkMany& endOfB);
  // The place of the next entry, with room for it.
  static VornLinkPlace prepare(VornLinkOne& end);
  static VornLinkPlace prepare(VornLinkMany& end);
  // Enters the link in both places; all or nothing.
  static void enterBoth(VornObject& a, VornLinkPlace inA, VornObject& b, VornLinkPlace inB);
  static void enter(VornLinkPlace place, const VornLinkEntry& entry) noexcept;
  static void drop(VornLinkPlace place) noexcept;
  // What a collection keeps beside its entries, to find members by.
  static void remember(VornLinkPlace place, const VornObject& object);
  static void forget(VornLinkPlace place, const VornObject& object) noexcept;
  static VornObjectCollection::Finder* finderAt(VornLinkPlace place) noexcept;
};

// An end that holds at most one link, to a T. Reads as a pointer to the T, null without one.
template <class T>
class VornOne : public VornLinkOne {
 public:
  T* get() const { return static_cast<T*>(getObject()); }
  operator T*() const { return get(); }
  T* operator->() const { return get(); }
};

// An end that holds any number of links, to Ts, in the order they were made.
template <class T>
class VornMany : public VornLinkMany {
 public:
  class Iterator {
   public:
    using value_type = T*;
    using difference_type = std::ptrdiff_t;

    explicit Iterator(VornObjectCollection::Iterator entry) : entry_(entry) {}
    T* operator*() const { return static_cast<T*>((*entry_).object); }
    Iterator& operator++() {
      ++entry_;
      return *this;
    }
    void operator++(int) { ++entry_; }
    bool operator==(std::default_sentinel_t end) const { return entry_ == end; }

   private:
    VornObjectCollection::Iterator entry_;
  };

  // See VornObjectCollection::Iterator for what may happen during a walk.
  Iterator begin() const { return Iterator(entries()); }
  std::default_sentinel_t end() const { return {}; }

  // The member number `index`, counted from 0; `index` is below the count. It may close gaps
  // (see VornObjectCollection::at): two threads may walk a collection at a time, but not ask it by number.
  T* operator[](std::size_t index) const { return static_cast<T*>(&getCollection()->at(index)); }
};
