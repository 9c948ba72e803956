// Where the program keeps what it writes for itself: the history of the terminal, logs of hosts without one.
#pragma once
#include <string>

namespace KxConsole {

// $XDG_STATE_HOME/kxcad, else ~/.local/state/kxcad; made when missing. Empty without a home.
std::string StateFolder();
// A log for this process in the state folder; the oldest of earlier processes go once there are many. Empty without
// one.
std::string NewLogFile();

}   // namespace KxConsole
