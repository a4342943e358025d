// What the program settles with the system.
#pragma once

namespace cli {

// To be called before anything is opened. Then
// - a standard stream that is closed fails when it is used: the next file to be opened would take its number,
//   and messages would go into that file;
// - a file that becomes larger than allowed (ulimit -f) is an error of the write and ends no process;
// - a signal that ends the process has the temporary files removed before.
void prepareProcess();

// Has the temporary files removed and the process ended by that signal, even if it was to be ignored.
void endOn(int signal);

}  // namespace cli
