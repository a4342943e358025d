// VornObjectMemory: memory for the many small objects that an import makes in one go and destroys in another.
//
// It is cut from large chunks, one object behind the other. A chunk is given back once everything in it has
// been released; until then what is released leaves a gap. So allocating and releasing take a few
// instructions, and objects made one after the other stand side by side. Objects that live shorter than
// others belong in memory of their own, or they leave holes between them.
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
  // Makes what was allocated with `size` larger where it stands. False, and nothing changes, where something
  // stands behind it.
  bool extend(const void* memory, std::size_t size, std::size_t newSize) noexcept;
  // Gives back what any memory allocated with that size, in whatever thread.
  static void release(void* memory, std::size_t size) noexcept;

  // Whether the build has a tool that watches over memory. Then each object has memory of its own.
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
