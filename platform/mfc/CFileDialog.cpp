#include "CFileDialog.h"
#include "../ui/HostUi.h"
#include "TextView.h"
#include <string>

namespace {

// The extensions among the patterns of a filter, "dwg;dxf"; patterns for all files add none.
std::wstring ExtensionsOf(std::wstring_view filter)
{
    std::wstring extensions;
    bool isPattern = false;
    for (size_t at = 0; at < filter.size(); isPattern = !isPattern) {
        const size_t end = std::min(filter.find(L'|', at), filter.size());
        std::wstring_view piece = filter.substr(at, end - at);
        at = end + 1;
        while (isPattern && !piece.empty()) {
            const size_t length = std::min(piece.find(L';'), piece.size());
            const std::wstring_view pattern = piece.substr(0, length);
            piece.remove_prefix(std::min(length + 1, piece.size()));
            const size_t dot = pattern.rfind(L'.');
            if (dot == std::wstring_view::npos || pattern.substr(dot) == L".*")
                continue;
            extensions += (extensions.empty() ? L"" : L";") + std::wstring(pattern.substr(dot + 1));
        }
    }
    return extensions;
}

int NameStart(const CString& path)
{
    const int back = path.ReverseFind(L'\\'), slash = path.ReverseFind(L'/');
    return (back > slash ? back : slash) + 1;
}

}   // namespace

CFileDialog::CFileDialog(BOOL opens, const wchar_t* defaultExtension, const wchar_t* fileName, DWORD flags,
                         const wchar_t* filter, CWnd*)
    : m_ofn{flags, nullptr, nullptr}, m_opens(opens), m_extension(defaultExtension), m_path(fileName), m_filter(filter)
{
}

INT_PTR CFileDialog::DoModal()
{
    KxPlat::FileRequest request;
    request.title = m_ofn.lpstrTitle != nullptr ? m_ofn.lpstrTitle : m_opens ? L"打开" : L"另存为";
    request.initial = KxPlat::TextView(m_path);
    if (m_ofn.lpstrInitialDir != nullptr && NameStart(m_path) == 0)
        request.initial = std::wstring(m_ofn.lpstrInitialDir) + L"\\" + request.initial;
    request.extensions = ExtensionsOf(KxPlat::TextView(m_filter));
    if (request.extensions.empty())
        request.extensions = KxPlat::TextView(m_extension);
    request.forSave = !m_opens;
    std::wstring path;
    if (!KxPlat::Ui().AskFileName(request, path))
        return IDCANCEL;
    m_path = KxPlat::ToCString(path);
    if (GetFileExt().IsEmpty() && !m_extension.IsEmpty())
        m_path += L"." + m_extension;
    return IDOK;
}

CString CFileDialog::GetFileName() const
{
    return m_path.Mid(NameStart(m_path));
}

CString CFileDialog::GetFileExt() const
{
    const CString name = GetFileName();
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? CString() : name.Mid(dot + 1);
}

CString CFileDialog::GetFileTitle() const
{
    const CString name = GetFileName();
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? name : name.Left(dot);
}
