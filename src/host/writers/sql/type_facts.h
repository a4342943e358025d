// What servers hold against a column's type when it is in a key, a foreign key or a row. Types are given as
// they are written in the dialect: "VARCHAR(40)".
#pragma once

#include <cstddef>
#include <string_view>

#include "host/writers/common/dialects.h"

// Whether the type is one of the dialect's that no key or index takes.
bool isComparable(std::string_view type, const SqlDialect& dialect);

// Whether a foreign key's column of type `own` can refer to one of type `referenced`.
bool canReferTo(std::string_view own, std::string_view referenced, const SqlDialect& dialect);

// Bytes that count against the dialect's limit for a key or index.
std::size_t getKeyBytes(std::string_view type, const SqlDialect& dialect);

// Bytes that count against the dialect's limit for a row.
std::size_t getRowBytes(std::string_view type, const SqlDialect& dialect);

// The type that takes fewer bytes of a row and holds the same values; empty: there is none.
std::string_view getShorterType(std::string_view type, const SqlDialect& dialect);
