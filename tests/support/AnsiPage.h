// Another ANSI code page for as long as the object lives.
#pragma once
#include "win/CodePage.h"

namespace KxTest {

class AnsiPage {
public:
    explicit AnsiPage(unsigned codePage) : m_before(KxPlat::AnsiCodePage()), m_isSet(KxPlat::SetAnsiCodePage(codePage))
    {
    }
    ~AnsiPage() { KxPlat::SetAnsiCodePage(m_before); }
    AnsiPage(const AnsiPage&) = delete;
    AnsiPage& operator=(const AnsiPage&) = delete;

    // False where the code page of a process is fixed from its start, and is another one: the test skips its row.
    bool IsSet() const { return m_isSet; }

private:
    unsigned m_before;
    bool m_isSet;
};

}   // namespace KxTest
