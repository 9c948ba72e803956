// What modules' code throws at the platform that calls it.
#pragma once
#include <string>

namespace KxPlat {

// For handlers of everything: what the exception being handled says, for the user. It is over with this.
std::wstring EscapedException();

}   // namespace KxPlat
