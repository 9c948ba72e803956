#include "db/core/DbCore.h"
#include "db/core/ObjectAccess.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxReferenceFiler.h"
#include "KxArxBase/Opened.h"
#include "win/Files.h"
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

using namespace KxArxBase;
namespace fs = std::filesystem;

namespace {

using Handles = std::multiset<uint64_t>;

// The handles of one record of a file, by the kind of reference that their group code says.
struct Stored {
    Handles softPointers, hardPointers, softOwners, hardOwners;
};

Handles* KindOf(Stored& stored, int code)
{
    if (code == 1005 || (code >= 320 && code <= 339))
        return &stored.softPointers;
    if ((code >= 340 && code <= 349) || (code >= 390 && code <= 399))
        return &stored.hardPointers;
    if (code >= 350 && code <= 359)
        return &stored.softOwners;
    return code >= 360 && code <= 369 ? &stored.hardOwners : nullptr;
}

// Reads the pointer groups of a text file without the platform. The owner (330 in the head of a record) is left out.
std::map<uint64_t, Stored> PointersIn(const fs::path& path)
{
    std::map<uint64_t, Stored> all;
    std::ifstream in(path);
    std::string codeLine, value, kind, section;
    uint64_t handle = 0;
    Stored stored;
    bool isInBraces = false, isInHead = true, nameFollows = false;
    while (std::getline(in, codeLine) && std::getline(in, value)) {
        if (!value.empty() && value.back() == '\r')
            value.pop_back();
        const int code = std::atoi(codeLine.c_str());
        if (nameFollows && code == 2)
            section = value;
        nameFollows = false;
        if (code == 0) {
            if (handle != 0 && section != "HEADER" && section != "CLASSES")
                all.emplace(handle, stored);
            handle = 0, stored = Stored(), isInBraces = false, isInHead = true;
            kind = value;
            nameFollows = kind == "SECTION";
            continue;
        }
        if (code == 102 && isInHead)
            isInBraces = value.starts_with("{");
        if (code == 100)
            isInHead = false;
        if (isInHead && ((code == 5 && kind != "DIMSTYLE") || (code == 105 && kind == "DIMSTYLE")))
            handle = std::strtoull(value.c_str(), nullptr, 16);
        const uint64_t to = std::strtoull(value.c_str(), nullptr, 16);
        if (Handles* handles = KindOf(stored, code); handles != nullptr && to != 0)
            if (code != 330 || !isInHead || isInBraces)
                handles->insert(to);
    }
    return all;
}

Handles HandlesOf(const AcDbObjectIdArray& ids)
{
    Handles handles;
    for (int i = 0; i < ids.length(); ++i)
        handles.insert(uint64_t(ids.at(i).handle()));
    return handles;
}

void TakeAway(Handles& handles, AcDbObjectId id)
{
    const auto place = handles.find(uint64_t(id.handle()));
    if (place != handles.end())
        handles.erase(place);
}

// What the filer collects of an object, without its owner and what it contains.
Stored Collected(const AcDbObject& object, CKxReferenceFiler& filer)
{
    filer.Reset();
    EXPECT_EQ(object.dwgOut(&filer), Acad::eOk);
    AcDbObjectIdArray soft, hard, softOwned, hardOwned;
    filer.GetSoftPointerIds(soft);
    filer.GetHardPointerIds(hard);
    filer.GetSoftOwnershipIds(softOwned);
    filer.GetHardOwnershipIds(hardOwned);
    Stored stored{HandlesOf(soft), HandlesOf(hard), HandlesOf(softOwned), HandlesOf(hardOwned)};
    TakeAway(stored.softPointers, object.ownerId());
    if (const AcDbSymbolTable* table = AcDbSymbolTable::cast(&object))
        for (AcDbStub* record : table->records())
            TakeAway(stored.softOwners, record);
    if (const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&object)) {
        TakeAway(stored.hardOwners, block->beginStub());
        TakeAway(stored.hardOwners, block->endStub());
        for (AcDbStub* entity : block->entities())
            TakeAway(stored.hardOwners, entity);
    }
    const AcDbEntity* entity = AcDbEntity::cast(&object);
    if (entity != nullptr && entity->parts() != nullptr)
        for (AcDbStub* part : *entity->parts())
            TakeAway(stored.hardOwners, part);
    return stored;
}

// Hard pointers besides those of the file are table records that the file names instead.
void ExpectNamedRecords(AcDbDatabase& db, Handles collected, const Handles& stored)
{
    for (uint64_t handle : stored) {
        const auto place = collected.find(handle);
        ASSERT_NE(place, collected.end()) << std::hex << handle;
        collected.erase(place);
    }
    for (uint64_t handle : collected) {
        // Handle 0 is a record that is only named.
        const AcDbStub* stub = KxPlat::CoreOf(db).handles.Find(handle);
        const bool isRecord = stub != nullptr && AcDbSymbolTableRecord::cast(stub->object) != nullptr;
        EXPECT_TRUE(handle == 0 || isRecord) << std::hex << handle;
    }
}

void CompareWithFile(const fs::path& path)
{
    SCOPED_TRACE(path.filename().string());
    AcDbDatabase db(false, true);
    ASSERT_EQ(db.readDwgFile(KxPlat::DrivePath(path.string()).c_str()), Acad::eOk);
    CKxReferenceFiler filer;
    size_t compared = 0;
    for (const auto& [handle, stored] : PointersIn(path)) {
        AcDbObjectId id;
        AcDbObject* opened = nullptr;
        if (db.getAcDbObjectId(id, false, AcDbHandle(handle)) != Acad::eOk)
            continue;
        const Acad::ErrorStatus es = acdbOpenObject(opened, id, AcDb::kForRead);
        const Opened<AcDbObject> object(opened, es);
        if (es != Acad::eOk)
            continue;
        SCOPED_TRACE(testing::Message() << std::hex << handle);
        const Stored collected = Collected(*opened, filer);
        EXPECT_EQ(collected.softPointers, stored.softPointers);
        EXPECT_EQ(collected.softOwners, stored.softOwners);
        EXPECT_EQ(collected.hardOwners, stored.hardOwners);
        ExpectNamedRecords(db, collected.hardPointers, stored.hardPointers);
        ++compared;
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(compared, 30u);
}

}   // namespace

TEST(ReferenceFiler, ListsThePointersOfTheFile)
{
    for (const char* name : {"house_r2007.dxf", "house_r2010.dxf", "house_r2018.dxf", "proxies.dxf"})
        CompareWithFile(fs::path(KX_TEST_DATA) / name);
}

TEST(ReferenceFiler, ListsThePointersOfRealDrawings)
{
    if (!fs::is_directory(KX_DRAWINGS))
        GTEST_SKIP() << "no folder of real drawings";
    for (const char* name : {"family_r2000.dxf", "family_r2018.dxf", "uncommon_r2018.dxf", "groups_r2013.dxf",
                             "details_r2013_2.7MB.dxf", "floorplan_r2004.dxf", "viewport_frozen_r2013.dxf"})
        if (fs::exists(fs::path(KX_DRAWINGS) / name))
            CompareWithFile(fs::path(KX_DRAWINGS) / name);
}

TEST(ReferenceFiler, AnObjectOnItsOwnStoresNothing)
{
    CKxReferenceFiler filer;
    AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    EXPECT_EQ(line.dwgOut(&filer), Acad::eOk);
    AcDbObjectIdArray ids;
    ids.append(AcDbObjectId());
    filer.GetHardPointerIds(ids);
    EXPECT_EQ(ids.length(), 0);
    filer.GetSoftPointerIds(ids);
    EXPECT_EQ(ids.length(), 0);
    EXPECT_EQ(line.dwgOut(nullptr), Acad::eNullPtr);
}

TEST(ReferenceFiler, KeepsOrderAndDuplicatesAndForgetsOnReset)
{
    AcDbDatabase db;
    const AcDbObjectId layer = db.layerZero(), style = db.textstyle();
    CKxReferenceFiler filer;
    for (AcDbObjectId id : {style, layer, AcDbObjectId(), style})
        EXPECT_EQ(filer.writeSoftPointerId(id), Acad::eOk);
    filer.writeHardOwnershipId(layer);
    AcDbObjectIdArray ids;
    filer.GetSoftPointerIds(ids);
    ASSERT_EQ(ids.length(), 3);
    EXPECT_EQ(ids.at(0), style);
    EXPECT_EQ(ids.at(1), layer);
    EXPECT_EQ(ids.at(2), style);
    const CKxReferenceFiler copy(filer);
    filer.Reset();
    filer.GetSoftPointerIds(ids);
    EXPECT_EQ(ids.length(), 0);
    filer.GetHardOwnershipIds(ids);
    EXPECT_EQ(ids.length(), 0);
    copy.GetHardOwnershipIds(ids);
    EXPECT_EQ(ids.length(), 1);
    EXPECT_EQ(filer.filerStatus(), Acad::eOk);
    EXPECT_EQ(int(filer.filerType()), 7);
}

TEST(ReferenceFiler, AGroupedEntityPointsBackToItsGroup)
{
    AcDbDatabase db;
    CKxAcDb tool(&db, 0);
    AcDbObjectId line, group;
    tool.AddEntToSpace(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), 1, nullptr, &line);
    AcDbObjectIdArray ids;
    ids.append(line);
    ASSERT_EQ(tool.Group(L"门窗", ids, &group), Acad::eOk);
    CKxReferenceFiler filer;
    const Opened<AcDbObject> object(line, AcDb::kForRead);
    object->dwgOut(&filer);
    filer.GetSoftPointerIds(ids);
    EXPECT_TRUE(ids.contains(group));
}

TEST(ReferenceFiler, TheHostKnowsTheClass)
{
    AcRxDictionary* classes = AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY));
    ASSERT_NE(classes, nullptr);
    CKxReferenceFiler::rxInit();
    EXPECT_EQ(classes->at(L"CKxReferenceFiler"), CKxReferenceFiler::desc());
    CKxReferenceFiler::rxInit();   // again does nothing
    EXPECT_TRUE(CKxReferenceFiler::desc()->isDerivedFrom(AcDbDwgFiler::desc()));
    AcRxObject* made = CKxReferenceFiler::desc()->create();
    EXPECT_NE(CKxReferenceFiler::cast(made), nullptr);
    delete made;
}
