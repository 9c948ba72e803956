#include "KxMfcEx/KxModule.h"
#include "KxMfcEx/KxObject.h"
#include <gtest/gtest.h>
#include <memory>

namespace {

using namespace KxMfcEx;

// A class that joins the system the way modules of the family do it.
class Wall : public CKxObject {
public:
    CKxRuntimeClass* GetRtc() const override { return &rtcWall; }
    static CKxRuntimeClass* Dest() { return &rtcWall; }
    static CKxObject* CreateObject() { return new Wall; }
    static CKxRuntimeClass rtcWall;
};
CKxRuntimeClass Wall::rtcWall(L"Wall", CKxObject::Dest(), &Wall::CreateObject, 7);

class Door : public Wall {
public:
    CKxRuntimeClass* GetRtc() const override { return &rtcDoor; }
    static CKxRuntimeClass* Dest() { return &rtcDoor; }
    static CKxRuntimeClass rtcDoor;
};
CKxRuntimeClass Door::rtcDoor(L"Door", Wall::Dest(), nullptr, 8);

TEST(RuntimeClass, RecordsTellTheirChain)
{
    EXPECT_STREQ(Door::Dest()->GetClassName(), L"Door");
    EXPECT_STREQ(Door::Dest()->GetParentClassName(), L"Wall");
    EXPECT_EQ(Door::Dest()->GetParentClass(), Wall::Dest());
    EXPECT_STREQ(CKxObject::Dest()->GetClassName(), L"CKxObject");
    EXPECT_STREQ(CKxObject::Dest()->GetParentClassName(), L"NULL");
    EXPECT_EQ(CKxObject::GetParentRtc(), nullptr);
    CKxRuntimeClass unknown;
    EXPECT_STREQ(unknown.GetClassName(), L"UNKNOWCLASS");
    EXPECT_EQ(unknown.CreateObject(), nullptr);
    unknown = Wall::rtcWall;
    EXPECT_STREQ(unknown.GetClassName(), L"Wall");
    EXPECT_EQ(unknown.IsDerivedFrom(CKxObject::Dest()), 1);
    EXPECT_EQ(unknown.IsDerivedFrom(Wall::Dest()), 0) << "a copy is another record";
}

TEST(RuntimeClass, Derivation)
{
    struct Row {
        CKxRuntimeClass *record, *base;
        int answer;
    };
    const Row rows[] = {{Door::Dest(), Door::Dest(), 1},      {Door::Dest(), Wall::Dest(), 1},
                        {Door::Dest(), CKxObject::Dest(), 1}, {Wall::Dest(), Door::Dest(), 0},
                        {Wall::Dest(), nullptr, 0},           {CKxObject::Dest(), nullptr, 0},
                        {CKxObject::Dest(), Wall::Dest(), 0}};
    for (const Row& row : rows)
        EXPECT_EQ(row.record->IsDerivedFrom(row.base), row.answer);
}

TEST(RuntimeClass, ObjectsAnswerForTheirOwnClass)
{
    const std::unique_ptr<CKxObject> wall(Wall::Dest()->CreateObject());
    const std::unique_ptr<CKxObject> object(CKxObject::Dest()->CreateObject());
    Door door;
    EXPECT_STREQ(wall->GetClassName(), L"Wall");
    EXPECT_STREQ(wall->GetParentClassName(), L"CKxObject");
    EXPECT_EQ(wall->IsAClass(Wall::Dest()), 1);
    EXPECT_EQ(door.IsAClass(Wall::Dest()), 0);
    EXPECT_EQ(door.IsDerivedFrom(Wall::Dest()), 1);
    EXPECT_EQ(object->IsAClass(CKxObject::Dest()), 1);
    EXPECT_EQ(CKxObject::Cast(&door), &door);
    EXPECT_EQ(CKxObject::Cast(nullptr), nullptr);
    EXPECT_EQ(Door::Dest()->CreateObject(), nullptr);
}

class TestModule : public CKxModule {
public:
    using CKxModule::CKxModule;
    int InitModule() override { return 1; }
    int UnloadModule() override { return 1; }
};

class Module : public testing::Test {
protected:
    void SetUp() override
    {
        wchar_t file[MAX_PATH], drive[_MAX_DRIVE], folder[_MAX_DIR], name[_MAX_FNAME];
        GetModuleFileNameW(nullptr, file, MAX_PATH);
        _wsplitpath(file, drive, folder, name, nullptr);
        programFolder = CString(drive) + folder;
        programName = name;
        probe = LoadLibraryW(CString(programFolder) + L"probe\\KxProbe.arx");
        refused = LoadLibraryW(CString(programFolder) + L"probe\\KxLower.arx");
        ASSERT_NE(probe, nullptr);
        ASSERT_NE(refused, nullptr);
    }
    void TearDown() override
    {
        FreeLibrary(probe);
        FreeLibrary(refused);
    }
    CString programFolder, programName;
    HINSTANCE probe = nullptr, refused = nullptr;
};

TEST_F(Module, ReportsTheProgramUntilAHandleIsSet)
{
    TestModule module;
    EXPECT_EQ(module.GetInstance(), nullptr);
    EXPECT_STREQ(module.GetModulePath(), programFolder);
    EXPECT_STREQ(module.GetModuleName(), programName);
    EXPECT_EQ(module.SetInstance(nullptr), 1);
    EXPECT_EQ(module.SetInstance(probe), 1);
    EXPECT_EQ(module.GetInstance(), probe);
    EXPECT_STREQ(module.GetModulePath(), programFolder + L"probe\\");
    EXPECT_STREQ(module.GetModuleName(), L"KxProbe");
}

TEST_F(Module, KeepsItsFirstHandle)
{
    TestModule module(probe);
    EXPECT_EQ(module.SetInstance(refused), 0);
    EXPECT_EQ(module.GetInstance(), probe);
    EXPECT_STREQ(module.GetModuleName(), L"KxProbe");
    TestModule copy(module);
    EXPECT_EQ(copy.GetInstance(), probe);
    EXPECT_STREQ(copy.GetModulePath(), module.GetModulePath());
}

}   // namespace
