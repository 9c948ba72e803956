// A text file that a program has open.
#pragma once
#include "../../win/AtomicFile.h"
#include "Families.h"

namespace KxPlat::Lisp {

class FileCell : public HostCell {
public:
    ~FileCell() override { Close(); }
    const wchar_t* TypeName() const override { return L"FILE"; }
    std::wstring Printed() const override;

    // False when the file cannot be opened that way. `mode` is "r", "w" or "a".
    bool Open(const std::wstring& path, wchar_t mode);
    // What was written is in the file from then on. False when that failed.
    bool Close();
    bool IsOpen() const { return m_mode != 0; }
    bool IsReadable() const { return m_mode == L'r'; }

    // False at the end. A line comes without its end.
    bool ReadLine(std::wstring& line);
    bool ReadCharacter(wchar_t& character);
    void Write(std::wstring_view text);

private:
    wchar_t m_mode = 0;
    std::wstring m_path;
    std::wstring m_text;
    size_t m_at = 0;
    AtomicFile m_out;
};

// Fails unless the value is an open file.
FileCell& FileOf(const Value& value);

}   // namespace KxPlat::Lisp
