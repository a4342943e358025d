// VornObjectMemory: memory for the many small objects that an import makes in one go and destroys in another.
//
// Memory is cut from large chunks. A chunk is freed once everything in it has been released; until then
// released objects leave gaps. So allocating and releasing take a few instructions, and objects created one
// after the other are neighbours in memory. Use separate memory for objects with a shorter life: they would
// leave holes between the others.
#pragma once

#include <cstddef>
#include <future>

class VornObjectMemory {
 public:
  VornObjectMemory() = default;
  VornObjectMemory(const VornObjectMemory&) = delete;
  VornObjectMemory& operator=(const VornObjectMemory&) = delete;
  // What was allocated stays until it is released.
  ~VornObjectMemory();

  // Room for `size` bytes, aligned for pointers. Not for two threads at a time; keep one for each thread.
  void* allocate(std::size_t size);
  // Enlarges an allocation in place. Returns false, and changes nothing, if other memory follows it.
  bool extend(const void* memory, std::size_t size, std::size_t newSize) noexcept;
  // Releases what any VornObjectMemory allocated with that size. Any thread may call it.
  static void release(void* memory, std::size_t size) noexcept;

  // Whether the build has a memory checker. If so, each object is allocated separately.
  static bool isWatched() noexcept;

 private:
  struct Chunk;

  void* allocateInNextChunk(std::size_t size);
  // Has another thread make the next chunk's memory available while this one is filled.
  void prepareChunk() noexcept;
  void leaveChunk() noexcept;

  Chunk* chunk_ = nullptr;
  char* next_ = nullptr;
  std::size_t room_ = 0;       // bytes left in the chunk
  std::size_t allocated_ = 0;  // in this chunk
  std::future<void*> ready_;   // the next chunk, where one is being made
};
