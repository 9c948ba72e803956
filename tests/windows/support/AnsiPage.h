// The ANSI code page of Windows is fixed when a session starts: rows of another one are skipped. The program runs once
// in a session of each code page.
#pragma once
#include "KxWin.h"

namespace KxTest {

class AnsiPage {
public:
    explicit AnsiPage(unsigned codePage) : m_isSet(GetACP() == codePage) {}
    bool IsSet() const { return m_isSet; }

private:
    bool m_isSet;
};

}   // namespace KxTest
