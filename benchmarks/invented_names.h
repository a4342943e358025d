// Names without end, short and easily pronounced, each of them always the same.
#pragma once

#include <cstddef>
#include <string>

// The index-th word; no two are the same.
std::string makeWord(std::size_t index);

// The index-th name; every third has two words, and no two are the same.
std::string makeName(std::size_t index);
