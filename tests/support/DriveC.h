// Drive C: for one test: empty, and removed with all in it.
#pragma once
#include "support/TempFolder.h"

namespace KxTest {

class DriveC {
public:
    DriveC() : m_variable("KX_DRIVE_C", m_folder.Path("drive_c")) { std::filesystem::create_directories(Path()); }

    std::filesystem::path Path(const std::string& name = "") const { return m_folder.Path("drive_c/" + name); }
    void MakeFolder(const std::string& name) const { std::filesystem::create_directories(Path(name)); }
    void Write(const std::string& name, const std::string& bytes) const { m_folder.Write("drive_c/" + name, bytes); }

    // Another drive; false where a test cannot make one.
    bool AddDrive(char letter) const
    {
        return std::filesystem::create_directories(m_folder.Path(std::string("drive_") + letter));
    }

private:
    TempFolder m_folder;
    Variable m_variable;
};

}   // namespace KxTest
