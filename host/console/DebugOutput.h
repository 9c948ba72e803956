// Shows live what programs of this user send to the debugger.
#pragma once

namespace KxConsole {

// Until Ctrl-C, or until nobody reads the output any more. False, after a complaint, when it cannot listen.
bool ShowDebugOutput();

}   // namespace KxConsole
