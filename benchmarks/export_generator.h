// Exports of any size, for measuring: tables, columns, keys, relationships, roles, domains and data types.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>

struct ExportShape {
  std::size_t tables = 500;
  double columns = 5.6;  // a table, on average; at least 2
  std::uint64_t seed = 1;
  bool varied = false;  // keys of any type, roles with any action
};

// Writes an export of that shape: the same bytes for the same shape. Its import has nothing to warn of.
void writeExport(std::ostream& out, const ExportShape& shape);

// The number of tables with which an export has about `bytes` bytes; `shape.tables` does not count.
std::size_t tablesForSize(std::size_t bytes, const ExportShape& shape);
