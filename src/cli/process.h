// What the program settles with the system.
#pragma once

namespace cli {

// To be called before anything is opened. Then
// - a standard stream that is closed fails when it is used: the next file to be opened would take its number,
//   and messages would go into that file;
// - a file that becomes larger than allowed (ulimit -f) is an error of the write and ends no process;
// - a signal that ends the process has the temporary files removed before.
void prepareProcess();

// From now on the first signal that asks the process to end, unless those are ignored, is only remembered:
// what the process is at can be brought to an end. A second one ends it.
void deferEnding();
// The signal that was remembered, or 0.
int getDeferredSignal();
// In a process that was forked since: such signals end it at once again.
void endWithoutDelay();

// Has the temporary files removed and the process ended by that signal, even if it was to be ignored.
void endOn(int signal);

}  // namespace cli
