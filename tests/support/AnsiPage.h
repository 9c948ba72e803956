// Another ANSI code page for as long as the object lives.
#pragma once
#include "win/CodePage.h"

namespace KxTest {

class AnsiPage {
public:
    explicit AnsiPage(unsigned codePage) : m_before(KxPlat::AnsiCodePage()) { KxPlat::SetAnsiCodePage(codePage); }
    ~AnsiPage() { KxPlat::SetAnsiCodePage(m_before); }
    AnsiPage(const AnsiPage&) = delete;
    AnsiPage& operator=(const AnsiPage&) = delete;

private:
    unsigned m_before;
};

}   // namespace KxTest
