// What modules' code throws at the platform that calls it.
#pragma once
#include "../ui/HostUi.h"
#include <string>

namespace KxPlat {

// For handlers of everything: what the exception being handled says, for the user. It is over with this.
std::wstring EscapedException();

// Calls code of a module. What it throws is told as the complaint "WHAT: WHY", and `fallback` answered.
template <class Work, class Answer>
Answer Guarded(const wchar_t* what, Answer fallback, Work&& work)
{
    try {
        return work();
    } catch (...) {
        Ui().Complain(std::wstring(what) + L": " + EscapedException());
        return fallback;
    }
}

}   // namespace KxPlat
