#include "FileCell.h"
#include "../../win/CodePage.h"
#include "../../win/Files.h"
#include "../../win/Format.h"

namespace KxPlat::Lisp {

std::wstring FileCell::Printed() const
{
    return Format(L"#<file \"%s\">", m_path.c_str());
}

bool FileCell::Open(const std::wstring& path, wchar_t mode)
{
    const std::string hostPath = HostPath(path);
    const FileInfo info = FileInfoOf(hostPath);
    if (info.isFolder || (mode == L'r' && !info.exists))
        return false;
    int error = 0;
    std::string bytes;
    if (mode != L'w' && info.exists)
        bytes = ReadWholeFile(hostPath, error);
    if (error != 0)
        return false;
    if (mode == L'r') {
        m_text = IsUtf8(bytes) ? FromUtf8(bytes) : Decode(0, bytes);
        if (!m_text.empty() && m_text[0] == 0xFEFF)
            m_at = 1;
    } else {
        if (m_out.Open(hostPath) != 0)
            return false;
        m_out.Write(bytes);
    }
    m_mode = mode;
    m_path = path;
    return true;
}

bool FileCell::Close()
{
    const bool isWriting = m_mode == L'w' || m_mode == L'a';
    m_mode = 0;
    return !isWriting || m_out.Commit() == 0;
}

bool FileCell::ReadLine(std::wstring& line)
{
    if (m_at >= m_text.size())
        return false;
    const size_t end = std::min(m_text.find(L'\n', m_at), m_text.size());
    line = m_text.substr(m_at, end - m_at);
    if (!line.empty() && line.back() == L'\r')
        line.pop_back();
    m_at = end + 1;
    return true;
}

// A line end of two characters counts as one.
bool FileCell::ReadCharacter(wchar_t& character)
{
    if (m_at + 1 < m_text.size() && m_text[m_at] == L'\r' && m_text[m_at + 1] == L'\n')
        ++m_at;
    if (m_at >= m_text.size())
        return false;
    character = m_text[m_at++];
    return true;
}

void FileCell::Write(std::wstring_view text)
{
    m_out.Write(Encode(0, text));
}

FileCell& FileOf(const Value& value)
{
    auto* file = value.kind() == Kind::Host ? dynamic_cast<FileCell*>(value.host()) : nullptr;
    if (file == nullptr || !file->IsOpen())
        BadArgument(L"streamp", value);
    return *file;
}

}   // namespace KxPlat::Lisp
