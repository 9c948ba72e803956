// The version resource that programs of this system carry.
#include "win/OwnVersion.h"
#include "KxWin.h"
#include <cstring>
#include <gtest/gtest.h>

KX_OWN_VERSION("ProductName=Kx 测试\nFileVersion=1.2.3.4\nProductVersion=18.1.0.0\n")

namespace {

std::string BlockOf(const wchar_t* file)
{
    std::string block(GetFileVersionInfoSizeW(file, nullptr), '\0');
    EXPECT_TRUE(GetFileVersionInfoW(file, 0, static_cast<DWORD>(block.size()), block.data()));
    return block;
}

std::wstring Text(const std::string& block, const wchar_t* path)
{
    void* value = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(block.data(), path, &value, &length) || length == 0)
        return L"-";
    return std::wstring(static_cast<const wchar_t*>(value), length - 1);
}

TEST(OwnVersion, IsThatOfTheProgram)
{
    wchar_t file[520];
    GetModuleFileNameW(nullptr, file, 520);
    const auto product = [&] { return Text(BlockOf(file), L"\\StringFileInfo\\040904b0\\ProductVersion"); };
    EXPECT_EQ(Text(BlockOf(file), L"\\StringFileInfo\\040904b0\\ProductName"), L"Kx 测试");
    EXPECT_EQ(product(), L"18.1.0.0");
    KxPlat::SetOwnProductVersion(L"18.2");
    EXPECT_EQ(product(), L"18.2");
    void* value = nullptr;
    UINT length = 0;
    const std::string block = BlockOf(file);
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &value, &length));
    VS_FIXEDFILEINFO fixed = {};
    std::memcpy(&fixed, value, sizeof fixed);
    EXPECT_EQ(fixed.dwProductVersionMS, 0x00120002u);
    EXPECT_EQ(fixed.dwFileVersionMS, 0x00010002u);
    KxPlat::SetOwnProductVersion(L"");
}

}   // namespace
