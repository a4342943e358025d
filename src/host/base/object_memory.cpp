#include "host/base/object_memory.h"

#include <sys/mman.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <new>

namespace {

// A chunk begins at a multiple of its size.
constexpr std::size_t kChunkSize = std::size_t{1024} * 1024;

// Larger objects are allocated separately.
constexpr std::size_t kMostInChunk = std::size_t{32} * 1024;

// Tools that watch over memory are to see each object.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kWatched = true;
#elif defined(__has_feature)
constexpr bool kWatched = __has_feature(address_sanitizer);
#else
constexpr bool kWatched = false;
#endif

bool hasMemoryOfItsOwn(std::size_t size) {
  return kWatched || size > kMostInChunk;
}

std::size_t roundUp(std::size_t size) {
  return (size + alignof(void*) - 1) / alignof(void*) * alignof(void*);
}

}  // namespace

struct alignas(void*) VornObjectMemory::Chunk {
  // More than a chunk can hold, so that none is given back that is still being filled.
  static constexpr std::size_t kBeingFilled = kChunkSize;

  // Takes `count` off what is in use.
  void release(std::size_t count) noexcept {
    if (inUse.fetch_sub(count, std::memory_order_acq_rel) == count) {
      std::free(this);
    }
  }

  std::atomic<std::size_t> inUse = kBeingFilled;
};

bool VornObjectMemory::isWatched() noexcept {
  return kWatched;
}

VornObjectMemory::~VornObjectMemory() {
  if (ready_.valid()) {
    std::free(ready_.get());
  }
  leaveChunk();
}

void* VornObjectMemory::allocate(std::size_t size) {
  if (hasMemoryOfItsOwn(size)) {
    return ::operator new(size);
  }
  size = roundUp(size);
  if (size > room_) {
    return allocateInNextChunk(size);
  }
  void* const memory = next_;
  next_ += size;
  room_ -= size;
  ++allocated_;
  return memory;
}

void* VornObjectMemory::allocateInNextChunk(std::size_t size) {
  void* const memory = ready_.valid() ? ready_.get() : std::aligned_alloc(kChunkSize, kChunkSize);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  // Whoever fills one chunk mostly fills many.
  if (chunk_ != nullptr) {
    prepareChunk();
  }
  leaveChunk();
  chunk_ = new (memory) Chunk();
  next_ = static_cast<char*>(memory) + sizeof(Chunk);
  room_ = kChunkSize - sizeof(Chunk);
  return allocate(size);
}

void VornObjectMemory::prepareChunk() noexcept {
  void* const memory = std::aligned_alloc(kChunkSize, kChunkSize);
  if (memory == nullptr) {
    return;
  }
  try {
    ready_ = std::async(std::launch::async, [memory] {
      // The system would take longer to make its pages available one by one.
      ::madvise(memory, kChunkSize, MADV_POPULATE_WRITE);
      return memory;
    });
  } catch (const std::exception&) {
    std::free(memory);  // there is no further thread: the chunk is made when it is needed
  }
}

bool VornObjectMemory::extend(const void* memory, std::size_t size, std::size_t newSize) noexcept {
  const std::size_t more = roundUp(newSize) - roundUp(size);
  const bool isLast = static_cast<const char*>(memory) + roundUp(size) == next_;
  if (!isLast || more > room_ || hasMemoryOfItsOwn(size) || hasMemoryOfItsOwn(newSize)) {
    return false;
  }
  next_ += more;
  room_ -= more;
  return true;
}

void VornObjectMemory::leaveChunk() noexcept {
  if (chunk_ != nullptr) {
    chunk_->release(Chunk::kBeingFilled - allocated_);
  }
  chunk_ = nullptr;
  next_ = nullptr;
  room_ = 0;
  allocated_ = 0;
}

void VornObjectMemory::release(void* memory, std::size_t size) noexcept {
  if (hasMemoryOfItsOwn(size)) {
    ::operator delete(memory);
  } else {
    const std::uintptr_t place = reinterpret_cast<std::uintptr_t>(memory) % kChunkSize;
    reinterpret_cast<Chunk*>(static_cast<char*>(memory) - place)->release(1);
  }
}
