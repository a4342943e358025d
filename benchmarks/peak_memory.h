// How much memory a piece of work takes at its peak.
#pragma once

#include <cstddef>
#include <functional>

// Does `work` in a process of its own, a copy of this one, and returns by how many bytes that grew at its
// peak. What this process has allocated and freed before may be used again and does not count: measure first.
// Throws std::runtime_error when the work throws.
std::size_t measurePeakMemory(const std::function<void()>& work);
