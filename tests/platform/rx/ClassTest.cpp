// The runtime class system as users of the host's interface see it.
#include "rx/AcRxDictionary.h"
#include "rx/AcRxService.h"
#include <gtest/gtest.h>
#include <memory>

class RxShape : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(RxShape);
};

class RxRound : public RxShape {
public:
    ACRX_DECLARE_MEMBERS(RxRound);
};

class RxSquare : public RxShape {
public:
    ACRX_DECLARE_MEMBERS(RxSquare);
};

// The child is defined before its parent: the order of definitions must not matter.
ACRX_DXF_DEFINE_MEMBERS(RxRound, RxShape, 23, 4, 1, KX_ROUND, KxTest)
ACRX_CONS_DEFINE_MEMBERS(RxSquare, RxShape, 1)
ACRX_NO_CONS_DEFINE_MEMBERS(RxShape, AcRxObject)

TEST(RxClass, KnowsItsPlaceInTheHierarchy)
{
    RxRound round;
    EXPECT_TRUE(round.isKindOf(RxRound::desc()));
    EXPECT_TRUE(round.isKindOf(RxShape::desc()));
    EXPECT_TRUE(round.isKindOf(AcRxObject::desc()));
    EXPECT_FALSE(round.isKindOf(RxSquare::desc()));
    EXPECT_FALSE(round.isKindOf(nullptr));
    EXPECT_EQ(RxRound::desc()->myParent(), RxShape::desc());
    EXPECT_EQ(AcRxObject::desc()->myParent(), nullptr);
    EXPECT_EQ(RxRound::desc()->comparedTo(RxShape::desc()), AcRx::kLessThan);
    EXPECT_EQ(RxShape::desc()->comparedTo(RxRound::desc()), AcRx::kGreaterThan);
    EXPECT_EQ(RxSquare::desc()->comparedTo(RxRound::desc()), AcRx::kNotOrderable);
}

TEST(RxClass, CastsAlongTheHierarchyOnly)
{
    RxRound round;
    AcRxObject* object = &round;
    EXPECT_EQ(RxShape::cast(object), &round);
    EXPECT_EQ(RxRound::cast(object), &round);
    EXPECT_EQ(RxSquare::cast(object), nullptr);
    EXPECT_EQ(RxShape::cast(nullptr), nullptr);
}

TEST(RxClass, IsFoundByNameAndMakesInstances)
{
    AcRxClass* round = KxPlat::ClassNamed(L"RxRound");
    ASSERT_NE(round, nullptr);
    EXPECT_EQ(KxPlat::ClassOfDxfName(L"KX_ROUND"), round);
    EXPECT_STREQ(round->dxfName(), L"KX_ROUND");
    EXPECT_STREQ(round->appName(), L"KxTest");
    int version = 0, maintenance = 0;
    round->getClassVersion(version, maintenance);
    EXPECT_EQ(version, 23);
    EXPECT_EQ(maintenance, 4);
    std::unique_ptr<AcRxObject> made(round->create());
    EXPECT_NE(RxRound::cast(made.get()), nullptr);
    EXPECT_EQ(RxShape::desc()->create(), nullptr) << "an abstract class makes nothing";
    EXPECT_EQ(KxPlat::ClassNamed(L"rxround"), nullptr) << "class names are exact";
}

TEST(RxClass, ForgottenWhenDeleted)
{
    AcRxClass* made = newAcRxClass(L"RxPassing", L"RxShape", 0, 0, 0, nullptr, L"KX_PASSING");
    EXPECT_TRUE(made->isDerivedFrom(RxShape::desc()));
    EXPECT_EQ(newAcRxClass(L"RxPassing", L"RxShape"), made) << "a name is given once";
    deleteAcRxClass(made);
    EXPECT_EQ(KxPlat::ClassNamed(L"RxPassing"), nullptr);
    EXPECT_EQ(KxPlat::ClassOfDxfName(L"KX_PASSING"), nullptr);
}

TEST(RxClass, ExtensionsAreInherited)
{
    RxSquare extension;
    RxRound round;
    EXPECT_EQ(RxShape::desc()->addX(RxSquare::desc(), &extension), nullptr);
    EXPECT_EQ(round.x(RxSquare::desc()), &extension);
    EXPECT_EQ(RxRound::desc()->getX(RxSquare::desc()), nullptr) << "the child carries none of its own";
    EXPECT_EQ(RxShape::desc()->delX(RxSquare::desc()), &extension);
    EXPECT_EQ(round.x(RxSquare::desc()), nullptr);
}

TEST(RxDictionary, FoldsKeysUnlessToldOtherwise)
{
    RxRound one, two;
    for (const bool isCaseSensitive : {false, true}) {
        SCOPED_TRACE(isCaseSensitive);
        std::unique_ptr<AcRxDictionary> dictionary(KxPlat::NewDictionary(false, isCaseSensitive));
        Adesk::UInt32 first = 0, second = 0;
        EXPECT_EQ(dictionary->atPut(L"Wände", &one, first), nullptr);
        EXPECT_EQ(dictionary->atPut(L"WÄNDE", &two, second), isCaseSensitive ? nullptr : &one);
        EXPECT_EQ(dictionary->numEntries(), isCaseSensitive ? 2u : 1u);
        EXPECT_EQ(first == second, !isCaseSensitive);
    }
}

TEST(RxDictionary, IdsOutliveKeys)
{
    RxRound one, two;
    std::unique_ptr<AcRxDictionary> dictionary(KxPlat::NewDictionary(false, true));
    Adesk::UInt32 b = 0, a = 0;
    dictionary->atPut(L"b", &one, b);
    dictionary->atPut(L"a", &two, a);
    EXPECT_FALSE(dictionary->resetKey(L"b", L"a")) << "taken";
    EXPECT_TRUE(dictionary->resetKey(L"b", L"c"));
    EXPECT_EQ(dictionary->idAt(L"c"), b);
    EXPECT_STREQ(dictionary->keyAt(b), L"c");
    EXPECT_FALSE(dictionary->has(L"b"));
    EXPECT_EQ(dictionary->remove(b), &one);
    EXPECT_FALSE(dictionary->has(b));
    Adesk::UInt32 later = 0;
    dictionary->atPut(L"d", &one, later);
    EXPECT_GT(later, a) << "numbers are not used again";
}

TEST(RxDictionary, WalksByKeyOrByAge)
{
    RxRound one, two, three;
    std::unique_ptr<AcRxDictionary> dictionary(KxPlat::NewDictionary(false, false));
    Adesk::UInt32 id = 0;
    dictionary->atPut(L"墙", &one, id);
    dictionary->atPut(L"b", &two, id);
    dictionary->atPut(L"A", &three, id);
    const auto keys = [&](AcRx::DictIterType type) {
        std::wstring all;
        std::unique_ptr<AcRxDictionaryIterator> walk(dictionary->newIterator(type));
        for (; !walk->done(); walk->next())
            all += walk->key();
        return all;
    };
    EXPECT_EQ(keys(AcRx::kDictSorted), L"Ab墙");
    EXPECT_EQ(keys(AcRx::kDictCollated), L"墙bA");
}

TEST(SysRegistry, HoldsTheServices)
{
    EXPECT_EQ(acrxSysRegistry()->at(L"SERVICEDICTIONARY"), acrxServiceDictionary);
    AcRxService* service = acrxRegisterService(L"KxTestService");
    ASSERT_NE(service, nullptr);
    EXPECT_EQ(acrxServiceDictionary->at(L"kxtestservice"), service);
    EXPECT_EQ(acrxRegisterService(L"KXTESTSERVICE"), nullptr) << "taken";
}

TEST(ErrorStatus, NamesAndNumbers)
{
    struct Row {
        int number;
        const wchar_t* name;
    };
    static const Row rows[] = {
        {0, L"eOk"},
        {3, L"eInvalidInput"},
        {6, L"eOutOfMemory"},
        {11, L"eNullHandle"},
        {16, L"eNullObjectId"},
        {22, L"eKeyNotFound"},
        {26, L"eAlreadyInDb"},
        {34, L"eWrongObjectType"},
        {45, L"eNotOpenForWrite"},
        {124, L"eNoDatabase"},
        {95, L"eDuplicateRecordName"},
        {151, L"eInvalidOffset"},
        {330, L"eNoDocument"},
        {335, L"eInvalidContext"},
        {359, L"eNullPtr"},
        {21, L"Unknown error"},
        {-1, L"Unknown error"},
        {100000, L"Unknown error"},
    };
    for (const Row& row : rows)
        EXPECT_STREQ(acadErrorStatusText(Acad::ErrorStatus(row.number)), row.name) << row.number;
}
