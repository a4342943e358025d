// ImportLog: the messages of an import on the command line.
#pragma once

#include <chrono>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "cli/import_watch.h"
#include "cli/progress_bar.h"
#include "cli/repeated_warnings.h"
#include "host/base/log.h"

namespace cli {

// Writes the messages, with the progress between them. On a terminal equal warnings become one line, before
// an error or at the end.
class ImportLog final : public VornStreamLog {
 public:
  ImportLog(std::ostream& stream, bool showsProgress);
  ImportLog(const ImportLog&) = delete;
  ImportLog& operator=(const ImportLog&) = delete;
  ~ImportLog() override { finish(); }

  // Leaves out the bridge's status messages, which name the steps of an import.
  void hideSteps() { hidesSteps_ = true; }

  // Counts the warnings by code. Writes only messages that are at least as severe as `shown`.
  void countWarnings(VornSeverity shown) { counting_ = Counting{shown, {}}; }
  CountsByName getWarningsByCode() const;

  void showProgress(const char* task, std::size_t done, std::size_t total) { bar_.update(task, done, total); }
  // Names the record that the next warning with this code is about.
  void nameNextWarning(std::string_view code, std::string_view name);
  // Removes the progress and writes the remaining warnings.
  void finish();

  // The code and text of the last message that was an error; empty if there was none.
  const std::string& getError() const { return error_; }
  double getSeconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  void put(VornSeverity severity, const VornString& code, const VornString& text) override;

  struct Counting {
    VornSeverity shown;
    CountsByName warnings;
  };

  // Debug messages name the record of each warning, so that each is written where it belongs.
  bool groupsWarnings() const { return isOnTerminal_ && !isEnabled(VornSeverity::debug); }

  bool isOnTerminal_;
  RepeatedWarnings warnings_;
  std::optional<Counting> counting_;
  bool hidesSteps_ = false;
  ProgressBar bar_;
  std::string error_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace cli
