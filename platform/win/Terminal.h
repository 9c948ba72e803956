// Whether somebody sits at the other end, and whether they asked to stop.
#pragma once

namespace KxPlat {

enum class StandardStream { Input = 0, Output = 1, Error = 2 };
bool IsTerminal(StandardStream stream);

// From now on Ctrl-C is remembered instead of ending the program, and breaks off a read that waits. Writing to a pipe
// that nobody reads any more is an error of the write, not the end.
void WatchInterrupts();
// True once after each Ctrl-C.
bool TakeInterrupt();

}   // namespace KxPlat
