// A registry for one test, filled from the text of an export file.
#pragma once
#include "support/TempFolder.h"

namespace KxTest {

class TestRegistry {
public:
    TestRegistry() : m_variable("KX_REGISTRY", m_folder.Path("t.reg")) {}
    // Replaces what was there. `keys` is what follows the first line of the file.
    void Import(const std::string& keys) const
    {
        m_folder.Write("t.reg", "Windows Registry Editor Version 5.00\n\n" + keys);
    }

private:
    TempFolder m_folder;
    Variable m_variable;
};

}   // namespace KxTest
