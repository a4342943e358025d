// One output written by several threads: it is cut into pieces, each thread formats the next one that nobody
// has begun, and they come into the file in their order.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "host/base/output.h"

class OrderedPieces;
class VornOutputFile;

// What one thread writes its pieces into. A piece that outgrows the buffer waits for those before it, then
// goes straight into the file, so that no piece is too large for memory.
class PieceOutput final : public VornOutput {
 public:
  explicit PieceOutput(OrderedPieces& pieces);

  // Ends the piece that is being written, if any; returns the number of the next to write, or none.
  std::optional<std::size_t> next();

 private:
  void take(const char* bytes, std::size_t count) override;

  OrderedPieces& pieces_;
  std::optional<std::size_t> piece_;
};

// Appends `pieces` pieces, counted from 0, to `file`. Calls `work` once in each of several threads, including
// this one, which writes pieces until there are no more. An exception in one thread ends all of them and is
// rethrown here.
void writeInPieces(VornOutputFile& file, std::size_t pieces, const std::function<void(PieceOutput&)>& work);
