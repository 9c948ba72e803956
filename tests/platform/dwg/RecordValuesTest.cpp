// Values of records come back from files of every kind as they were, whatever their codes.
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbRegAppTableRecord.h"
#include "db/AcDbXrecord.h"
#include "db/core/DbCore.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

// "1070=5 1040=2.5 1000=abc 1010=1,2,3"
std::string Shown(const resbuf* chain)
{
    std::string all;
    char text[80];
    for (; chain != nullptr; chain = chain->rbnext) {
        const int code = chain->restype;
        if (code == 10 || code == 1010)
            std::snprintf(text, sizeof text, "%d=%g,%g,%g ", code, chain->resval.rpoint[0], chain->resval.rpoint[1],
                          chain->resval.rpoint[2]);
        else if (code == 40 || code == 1040)
            std::snprintf(text, sizeof text, "%d=%g ", code, chain->resval.rreal);
        else if (code == 1 || code == 1000 || code == 1001)
            std::snprintf(text, sizeof text, "%d=%ls ", code, chain->resval.rstring);
        else if (code == 1071)
            std::snprintf(text, sizeof text, "%d=%ld ", code, long(chain->resval.rlong));
        else
            std::snprintf(text, sizeof text, "%d=%d ", code, int(chain->resval.rint));
        all += text;
    }
    return all;
}

struct Row {
    const char* name;
    resbuf* (*chain)();
    const char* shown;
};

const Row kRows[] = {
    {"Plain", [] { return acutBuildList(40, 1.5, 1, L"a", RTNONE); }, "40=1.5 1=a "},
    {"ToolkitList", [] { return acutBuildList(1001, L"KXTEST", 1071, 7L, 1040, 2.5, RTNONE); },
     "1001=KXTEST 1071=7 1040=2.5 "},
    {"NoApplication", [] { return acutBuildList(1071, 7L, 1000, L"b", 1070, 3, RTNONE); }, "1071=7 1000=b 1070=3 "},
    {"Mixed",
     [] {
         static const ads_point point = {1, 2, 3};
         return acutBuildList(1, L"c", 1000, L"d", 40, 4.5, 1001, L"KXTEST", 10, point, 1010, point, RTNONE);
     },
     "1=c 1000=d 40=4.5 1001=KXTEST 10=1,2,3 1010=1,2,3 "},
};

struct File {
    const wchar_t* name;
    AcDb::AcDbDwgVersion version;
};

class RecordValues : public testing::TestWithParam<File> {};

void Register(AcDbDatabase& db, const wchar_t* name)
{
    AcDbRegAppTable* table = nullptr;
    ASSERT_EQ(db.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbRegAppTableRecord;
    record->setName(name);
    EXPECT_EQ(table->add(record), Acad::eOk);
    record->close();
    table->close();
}

AcDbDictionary* Root(AcDbDatabase& db)
{
    return static_cast<AcDbDictionary*>(CoreOf(db).namedObjects->object);
}

}   // namespace

TEST_P(RecordValues, ComeBack)
{
    KxTest::TempFolder folder;
    AcDbDatabase db;
    Register(db, L"KXTEST");
    for (const Row& row : kRows) {
        AcDbDictionary* root = nullptr;
        ASSERT_EQ(db.getNamedObjectsDictionary(root, AcDb::kForWrite), Acad::eOk);
        auto* record = new AcDbXrecord;
        AcDbObjectId id;
        ASSERT_EQ(root->setAt(CString(row.name), record, id), Acad::eOk);
        root->close();
        resbuf* chain = row.chain();
        ASSERT_EQ(record->setFromRbChain(*chain), Acad::eOk);
        acutRelRb(chain);
        record->close();
    }
    const std::wstring path = folder.DrivePath(GetParam().name);
    ASSERT_EQ(db.saveAs(path.c_str(), false, GetParam().version), Acad::eOk);
    AcDbDatabase back(false, true);
    ASSERT_EQ(back.readDwgFile(path.c_str()), Acad::eOk);
    for (const Row& row : kRows) {
        AcDbObject* object = nullptr;
        ASSERT_EQ(Root(back)->getAt(CString(row.name), object, AcDb::kForRead), Acad::eOk) << row.name;
        resbuf* chain = nullptr;
        ASSERT_EQ(AcDbXrecord::cast(object)->rbChain(&chain), Acad::eOk);
        EXPECT_EQ(Shown(chain), row.shown) << row.name;
        acutRelRb(chain);
        object->close();
    }
}

TEST(RecordData, KeepsItsApplicationFromPurging)
{
    AcDbDatabase db;
    Register(db, L"KXTEST");
    AcDbObjectIdArray ids;
    ids.append(CoreOf(db).Table(TableKind::RegApp)->find(L"KXTEST"));
    ASSERT_EQ(db.purge(ids), Acad::eOk);
    EXPECT_EQ(ids.length(), 1);
    AcDbDictionary* root = nullptr;
    ASSERT_EQ(db.getNamedObjectsDictionary(root, AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbXrecord;
    AcDbObjectId id;
    ASSERT_EQ(root->setAt(L"MINE", record, id), Acad::eOk);
    root->close();
    resbuf* chain = kRows[1].chain();
    ASSERT_EQ(record->setFromRbChain(*chain), Acad::eOk);
    acutRelRb(chain);
    record->close();
    ASSERT_EQ(db.purge(ids), Acad::eOk);
    EXPECT_EQ(ids.length(), 0);
}

INSTANTIATE_TEST_SUITE_P(Files, RecordValues,
                         testing::Values(File{L"a.dxf", AcDb::kDHL_1015}, File{L"b.dxf", AcDb::kDHL_1024},
                                         File{L"a.dwg", AcDb::kDHL_1015}, File{L"b.dwg", AcDb::kDHL_1024}));
