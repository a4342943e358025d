// VornOutputFile: a file that appears whole or not at all.
//
// Bytes go into a temporary file beside the output, which `commit` renames. Without a commit the temporary
// file is removed and the previous file is untouched. If the process is killed, nothing remains on file
// systems with unnamed files; on others, if its signal handler calls VornTemporaryName::removeAll. An output
// that is no regular file (a pipe, a terminal, /dev/null) is written directly.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>

#include "host/base/output.h"
#include "host/base/temporary_name.h"

struct stat;

class VornOutputFile final : public VornOutput {
 public:
  // This path means standard output.
  static constexpr std::string_view kStandardOutput = "-";

  // Opens the output, by way of its temporary file. Throws VornException (PEMO::CANNOT_WRITE_FILE).
  explicit VornOutputFile(std::string path);
  VornOutputFile(const VornOutputFile&) = delete;
  VornOutputFile& operator=(const VornOutputFile&) = delete;
  // Gives the file up unless it was committed.
  ~VornOutputFile() override;

  // Throws what the constructor would throw, as far as that is known without creating a file. Also throws for
  // an existing regular file unless `mayReplace`.
  static void check(const std::string& path, bool mayReplace);

  // Where a path leads by way of links, to a file that need not be there.
  static std::string followLinks(const std::string& path);

  // From time to time calls `tell` with the number of bytes written, in the thread that created the file.
  void setListener(std::function<void(std::size_t)> tell) { tell_ = std::move(tell); }

  // Writes bytes directly, without the buffer.
  void writeStraight(const char* bytes, std::size_t count);

  // Writes what is still buffered and puts the file in its place. Throws like the constructor, also for a
  // write that failed before.
  void commit();

 private:
  // False when nothing is there; throws for what is no place for a file.
  static bool isThere(struct stat& status, const std::string& path);
  void openTemporary();
  void giveName();

  void take(const char* bytes, std::size_t count) override;
  [[noreturn]] void fail(std::error_code error) const { failOn(path_, error); }
  [[noreturn]] static void failOn(const std::string& path, std::error_code error);

  std::string path_;             // as given, for messages
  std::string target_;           // what the temporary file is renamed to: `path_` with links followed
  VornTemporaryName temporary_;  // none: without a name, written straight, or committed
  bool unnamed_ = false;         // the temporary file has no name yet
  int descriptor_ = -1;
  std::error_code error_;  // of the write that failed: the file cannot become whole any more
  std::size_t written_ = 0;
  std::thread::id home_ = std::this_thread::get_id();
  std::function<void(std::size_t)> tell_;
};
