// Names that no file or key has, of any length: each call answers its failure.
#include "KxMfcEx/CadInfo.h"
#include "KxMfcEx/FileVersion.h"
#include "KxMfcEx/Folders.h"
#include "KxMfcEx/KxFileIO.h"
#include "KxMfcEx/Launch.h"
#include "KxMfcEx/Products.h"
#include "KxMfcEx/StrFunLib.h"
#include "KxMfcEx/StrUtils.h"
#include "support/DriveC.h"
#include "support/ProgramFile.h"
#include "support/TestRegistry.h"
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace KxMfcEx;

class BadInput : public testing::Test {
protected:
    const std::wstring m_long = std::wstring(100000, L'x');
    KxTest::DriveC m_drive;
    KxTest::TestRegistry m_registry;
};

TEST_F(BadInput, NamesThatNoFileHas)
{
    const std::wstring names[] = {L"",      L"none\\x", L"\\\\none\\share", L"\\\\?\\",       L":",  L"a:b:c", L"Q:",
                                  L"Q:\\x", L"*",       L"C:\\|",           L"C:\\" + m_long, m_long};
    for (const std::wstring& name : names) {
        SCOPED_TRACE(testing::PrintToString(name.substr(0, 20)));
        CFileVersion version;
        CKxFileIO io;
        CStringArray found;
        EXPECT_EQ(version.Open(name.c_str()), 0);
        EXPECT_EQ(io.Open(name.c_str(), eKxFileIORead), 0);
        EXPECT_EQ(FilterCAD(L"ACAD-6001:804", name.c_str()), 0);
        EXPECT_EQ(RunAutoCadWithScr(182, name.c_str(), nullptr), 0);
        EXPECT_EQ(CreateAppointProcess(name.c_str(), L"x"), 0);
        EXPECT_EQ(CStrFunLib::BlurSearchPath((name + L"\\none").c_str(), L"x", found, 1), 0);
        EXPECT_EQ(CStrFunLib::FindSamePath(found, name.c_str()), -1);
    }
}

TEST_F(BadInput, LongTexts)
{
    EXPECT_EQ(MakeDir((L"C:\\" + m_long).c_str(), 0), 0);
    EXPECT_EQ(MakeDir((L"C:\\" + m_long + L"\\x").c_str(), 1), 0);
    EXPECT_EQ(WriteProfileValue((L"SOFTWARE\\" + m_long).c_str(), L"x"), 0);
    EXPECT_EQ(CStrFunLib::checkFileName(m_long.c_str()), 0);
    EXPECT_EQ(Str_Format(L"%s", m_long.c_str()).GetLength(), 100000);
    EXPECT_EQ(Str_IsNumString(std::wstring(100000, L'1').c_str(), 10), 1);
    CString name = (m_long + L"k.arx").c_str();
    CStrFunLib::GetKxArxVerName(name, 18);
    EXPECT_EQ(name.GetLength(), 100007);
    int release = 0, flavour = 0, language = 0;
    const std::wstring key = L"ACAD-" + std::wstring(100000, L'1') + L":" + std::wstring(100000, L'F');
    EXPECT_EQ(GetCADInfo(key.c_str(), &release, &flavour, &language), 1);
    EXPECT_EQ(release, 160);
    EXPECT_EQ(flavour, 0x11);
    CStringArray fields;
    CStrFunLib::SplitString(std::wstring(100000, L',').c_str(), fields, L',', 1);
    EXPECT_EQ(fields.GetSize(), 100001);
    EXPECT_EQ(CStrFunLib::CompareNoCaseWithFormat((L"*" + m_long + L"*y").c_str(), m_long.c_str()), 0);
    EXPECT_EQ(CStrFunLib::DblToStr(std::numeric_limits<double>::max(), 0).GetLength(), 309);
}

TEST_F(BadInput, FieldsOfAnyBytes)
{
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>(i * 7 + i / 256);
    m_drive.Write("any.txt", bytes);
    CKxFileIO io;
    ASSERT_EQ(io.Open(L"C:\\any.txt", eKxFileIORead), 1);
    int number = 0, fields = 0;
    for (; !std::feof(io.GetFile()) && fields < 10000; ++fields)
        io.StreamIO(number, L',');
    EXPECT_GT(fields, 1);
    EXPECT_LT(fields, 10000);
}

TEST_F(BadInput, VersionsCutAnywhere)
{
    const std::string sound = KxTest::ProgramFile(
        KxTest::VersionResource({1, 2, 3, 4, 5, 6, 7, 8}, 0x804, 0x4B0, {{u"FileVersion", u"1.2.3.4"}}), false);
    for (size_t length = 0; length < sound.size(); length += 11) {
        m_drive.Write("cut.exe", sound.substr(0, length));
        CFileVersion version;
        EXPECT_EQ(version.Open(L"C:\\cut.exe"), 0) << length;
        EXPECT_STREQ(version.GetFileVersion(), L"");
    }
}

}   // namespace
