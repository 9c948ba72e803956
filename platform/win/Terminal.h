// Whether somebody sits at the other end, what they typed, and whether they asked to stop.
#pragma once
#include <cstddef>
#include <string>

namespace KxPlat {

enum class StandardStream { Input = 0, Output = 1, Error = 2 };
bool IsTerminal(StandardStream stream);

// From now on Ctrl-C is remembered instead of ending the program, and breaks off a read that waits. Writing to a pipe
// that nobody reads any more is an error of the write, not the end.
void WatchInterrupts();
// True once after each Ctrl-C.
bool TakeInterrupt();

enum class Wake { Input, Message, Interrupt };
// Waits until standard input has something to read or has ended, a message for a window has come (ServeWindows deals
// with it), or Ctrl-C was pressed (TakeInterrupt still tells). Without `withInput` only for the latter two.
Wake WaitForInput(bool withInput);
// True when standard input has something to read, or ends, within that time.
bool HasInputWithin(int milliseconds);
// What there is on standard input, at most `size` bytes; 0 at its end.
size_t ReadStandardInput(char* bytes, size_t size);

// Standard output and standard error go on into this file, behind what is there. False when it cannot be written.
bool MoveOutputTo(const std::string& file);

}   // namespace KxPlat
