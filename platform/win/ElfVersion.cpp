#include "ElfVersion.h"
#include "CodePage.h"
#include "CrtText.h"
#include "KxWinTypes.h"
#include "OwnVersion.h"
#include <algorithm>
#include <cstring>

namespace KxPlat {
namespace {

std::wstring& ProductVersionSetting()
{
    static std::wstring version;
    return version;
}

VersionNode TextNode(std::wstring key, std::wstring text)
{
    VersionNode node;
    node.key = std::move(key);
    node.isText = true;
    node.text = std::move(text);
    return node;
}

VersionNode BinaryNode(std::wstring key, const void* data, size_t size)
{
    VersionNode node;
    node.key = std::move(key);
    node.binary.assign(static_cast<const char*>(data), size);
    return node;
}

// "18.2" as the two double words 18 << 16 | 2 and 0.
void SetNumbers(const std::wstring& version, DWORD& most, DWORD& least)
{
    DWORD parts[4] = {};
    size_t at = 0;
    for (DWORD& part : parts) {
        part = static_cast<DWORD>(_wtoi(version.c_str() + at)) & 0xFFFF;
        const size_t dot = version.find_first_of(L".,", at);
        if (dot == std::wstring::npos)
            break;
        at = dot + 1;
    }
    most = parts[0] << 16 | parts[1];
    least = parts[2] << 16 | parts[3];
}

}   // namespace

VersionNode VersionTreeOf(std::string_view text, const std::wstring& productVersion)
{
    VS_FIXEDFILEINFO fixed = {};
    fixed.dwSignature = VS_FFI_SIGNATURE;
    fixed.dwStrucVersion = VS_FFI_STRUCVERSION;
    fixed.dwFileType = 1;   // a program
    VersionNode strings = TextNode(L"040904b0", L"");
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find('\n', at), text.size());
        const std::string_view line = text.substr(at, end - at);
        at = end + 1;
        const size_t equals = line.find('=');
        if (equals == std::string_view::npos)
            continue;
        const std::wstring name = FromUtf8(line.substr(0, equals));
        std::wstring value = FromUtf8(line.substr(equals + 1));
        if (name == L"ProductVersion" && !productVersion.empty())
            value = productVersion;
        if (name == L"FileVersion")
            SetNumbers(value, fixed.dwFileVersionMS, fixed.dwFileVersionLS);
        if (name == L"ProductVersion")
            SetNumbers(value, fixed.dwProductVersionMS, fixed.dwProductVersionLS);
        strings.children.push_back(TextNode(name, value));
    }
    VersionNode root = BinaryNode(L"VS_VERSION_INFO", &fixed, sizeof fixed);
    VersionNode stringInfo = TextNode(L"StringFileInfo", L"");
    stringInfo.children.push_back(std::move(strings));
    const WORD translation[] = {0x0409, 0x04B0};
    VersionNode varInfo = TextNode(L"VarFileInfo", L"");
    varInfo.children.push_back(BinaryNode(L"Translation", translation, sizeof translation));
    root.children.push_back(std::move(stringInfo));
    root.children.push_back(std::move(varInfo));
    return root;
}

void SetOwnProductVersion(const std::wstring& version)
{
    ProductVersionSetting() = version;
}

const std::wstring& OwnProductVersion()
{
    return ProductVersionSetting();
}

}   // namespace KxPlat
