// Real drawings copied whole: every space holds the same entities, nothing dangles, no sheet is missing.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbLayout.h"
#include "db/core/Audit.h"
#include "db/core/DbCore.h"
#include "db/core/DefaultDrawing.h"
#include "dwg/DwgReader.h"
#include "DwgFiles.h"
#include <map>
#include <memory>

using namespace KxPlat;

namespace {

// Classes of the entities of each sheet, by the sheet's name.
std::map<std::wstring, std::vector<std::wstring>> SheetsOf(AcDbDatabase& db)
{
    std::map<std::wstring, std::vector<std::wstring>> sheets;
    AcDbObjectId id;
    if (static_cast<AcDbDictionary*>(CoreOf(db).namedObjects->object)->getAt(L"ACAD_LAYOUT", id) != Acad::eOk)
        return sheets;
    const AcDbStub* stub = id;
    for (const AcDbDictionary::Entry& entry : static_cast<AcDbDictionary*>(stub->object)->entries()) {
        const AcDbStub* layout = entry.id;
        if (layout == nullptr || layout->object == nullptr || layout->erased)
            continue;
        const AcDbStub* block = static_cast<AcDbLayout*>(layout->object)->getBlockTableRecordId();
        std::vector<std::wstring>& classes = sheets[entry.name.GetString()];
        for (const AcDbStub* entity : static_cast<AcDbBlockTableRecord*>(block->object)->entities())
            if (!entity->erased)
                classes.push_back(entity->object->isA()->name());
    }
    return sheets;
}

class DwgWholeCopy : public testing::TestWithParam<std::string> {};

}   // namespace

TEST_P(DwgWholeCopy, HoldsEverySheet)
{
    AcDbDatabase db(false, true);
    MappedFile file;
    DwgReport report;
    ASSERT_EQ(file.Open(GetParam()), 0);
    ASSERT_TRUE(ReadDwg(db, file.View(), report)) << report.error();
    CompleteDrawing(CoreOf(db));
    Audit before(CoreOf(db), false);
    before.All();

    AcDbDatabase* made = nullptr;
    ASSERT_EQ(db.wblock(made), Acad::eOk);
    const std::unique_ptr<AcDbDatabase> copy(made);
    EXPECT_EQ(SheetsOf(*copy), SheetsOf(db));
    Audit after(CoreOf(*copy), false);
    after.All();
    if (before.Findings().empty())
        for (const AuditFinding& finding : after.Findings())
            ADD_FAILURE() << CString(finding.object.c_str()).GetString() << ": " << finding.what.c_str();
    EXPECT_LE(after.Findings().size(), before.Findings().size());
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DwgWholeCopy);
INSTANTIATE_TEST_SUITE_P(Drawings, DwgWholeCopy, testing::ValuesIn(DwgFiles::All()),
                         [](const auto& info) { return DwgFiles::NameOf(info.param); });
