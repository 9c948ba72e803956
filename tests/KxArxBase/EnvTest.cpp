#include "KxArxBase/Env.h"
#include "ed/Session.h"
#include "TestUi.h"
#include "win/Files.h"
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

using namespace KxArxBase::Env;

namespace {

// A session with one new drawing.
class Env : public testing::Test {
protected:
    Env()
    {
        AcApDocument* document = nullptr;
        std::wstring why;
        KxPlat::NewDrawing(L"", document, why);
    }

    TestUi ui;
    KxPlat::Session session;
};

CString Folders()
{
    wchar_t folders[5000] = {};
    acedGetEnv(L"ACAD", folders, 5000);
    return folders;
}

}   // namespace

TEST_F(Env, AVariableIsReadOnlyAsItsOwnType)
{
    int number = 7;
    double real = 7;
    CString text = L"七";
    AcGePoint3d point(7, 7, 7);
    EXPECT_EQ(SetCadSysVar(L"LTSCALE", 2.5), Acad::eOk);
    EXPECT_EQ(GetCadSysVar(L"LTSCALE", number), Acad::eInvalidInput);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(GetCadSysVar(L"LTSCALE", real), Acad::eOk);
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(SetCadSysVar(L"FILEDIA", 0), Acad::eOk);
    EXPECT_EQ(GetCadSysVar(L"FILEDIA", number), Acad::eOk);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(GetCadSysVar(L"FILEDIA", text), Acad::eInvalidInput);
    EXPECT_STREQ(text, L"七");
    EXPECT_EQ(GetCadSysVar(L"CLAYER", text), Acad::eOk);
    EXPECT_STREQ(text, L"0");
    EXPECT_EQ(GetCadSysVar(L"INSBASE", point), Acad::eOk);
    EXPECT_EQ(point, AcGePoint3d(0, 0, 0));
    EXPECT_EQ(GetCadSysVar(L"NOSUCHVARIABLE", number), Acad::eInvalidInput);
    EXPECT_EQ(SetCadSysVar(L"NOSUCHVARIABLE", 1), Acad::eInvalidInput);
    EXPECT_EQ(SetCadSysVar(L"FILEDIA", 70000), Acad::eInvalidInput);   // no 16 bits
    GetCadSysVar(L"FILEDIA", number);
    EXPECT_EQ(number, 0);
}

TEST(EnvRelease, IsTenTimesTheLeadingNumber)
{
    struct Row {
        const wchar_t* release;
        int version;
    };
    for (const Row& row : {Row{L"18.0", 180}, Row{L"18.1", 181}, Row{L"18.2", 182}, Row{L"19.0", 190}}) {
        TestUi ui;
        KxPlat::SessionOptions options;
        options.release = row.release;
        KxPlat::Session session(options);
        AcApDocument* document = nullptr;
        std::wstring why;
        KxPlat::NewDrawing(L"", document, why);
        int version = -1;
        EXPECT_EQ(GetCurACADVer(version), Acad::eOk);
        EXPECT_EQ(version, row.version);
    }
}

TEST_F(Env, SupportFoldersAreAddedOnceAndRemoved)
{
    acedSetEnv(L"ACAD", L"C:\\Fonts;D:\\Lisp");
    EXPECT_EQ(SetCurProfileSupportPath(L"d:\\LISP", 1), Acad::eOk);   // there already, in other letters
    EXPECT_STREQ(Folders(), L"C:\\Fonts;D:\\Lisp");
    EXPECT_EQ(SetCurProfileSupportPath(L"E:\\图库", 1), Acad::eOk);
    EXPECT_STREQ(Folders(), L"c:\\fonts;d:\\lisp;e:\\图库");
    EXPECT_EQ(SetCurProfileSupportPath(L"D:\\Lisp", 0), Acad::eOk);
    EXPECT_STREQ(Folders(), L"c:\\fonts;e:\\图库");
    EXPECT_EQ(SetCurProfileSupportPath(L"", 1), Acad::eInvalidInput);
    EXPECT_EQ(SetCurProfileSupportPath(nullptr, 1), Acad::eInvalidInput);
}

TEST(EnvFile, TheVersionOfADrawingIsInItsFirstBytes)
{
    struct Row {
        const char* contents;
        int format;
    };
    static const Row rows[] = {
        {"AC1014", 8}, {"AC1015\0x", 12}, {"AC1018\0\0", 24}, {"AC1021", 36},       {"AC1024", 48}, {"AC1027", 60},
        {"AC1009", 0}, {"AC", 0},         {"AC1015x", 0},     {"  0\nSECTION", -1}, {"", -1}};
    const std::string path = testing::TempDir() + "kx-header.dwg";
    for (const Row& row : rows) {
        std::ofstream(path, std::ios::binary) << row.contents;
        EXPECT_EQ(int(GetSaveFormatVersion(KxPlat::DrivePath(path).c_str())), row.format) << row.contents;
    }
    std::remove(path.c_str());
    EXPECT_EQ(int(GetSaveFormatVersion(KxPlat::DrivePath(path).c_str())), -1);
}
