#include "mfc/CList.h"
#include "mfc/CMap.h"
#include "mfc/CStringArray.h"
#include <gtest/gtest.h>
#include <set>

namespace {

TEST(CArray, GrowsByIndexAndRefusesOthers)
{
    CArray<int, int> numbers;
    EXPECT_EQ(numbers.GetUpperBound(), -1);
    numbers.SetAtGrow(3, 7);
    EXPECT_EQ(numbers.GetSize(), 4);
    EXPECT_EQ(numbers[0], 0);
    numbers.InsertAt(6, 9);
    EXPECT_EQ(numbers.GetSize(), 7);
    numbers.InsertAt(1, numbers[3], 2);
    EXPECT_EQ(numbers[1], 7);
    EXPECT_EQ(numbers[5], 7);
    numbers.RemoveAt(0, 8);
    EXPECT_EQ(numbers.GetSize(), 1);
    EXPECT_EQ(numbers[0], 9);
    EXPECT_THROW(numbers.GetAt(1), std::out_of_range);
    EXPECT_THROW(numbers.RemoveAt(0, 2), std::out_of_range);
    EXPECT_EQ(numbers.GetSize(), 1);
}

TEST(CArray, AppendsItself)
{
    CStringArray names;
    names.Add(L"墙体");
    names.Add(names[0]);
    EXPECT_EQ(names[1].GetString(), names[0].GetString());   // shared, not copied
    EXPECT_EQ(names.Append(names), 2);
    ASSERT_EQ(names.GetSize(), 4);
    EXPECT_TRUE(names[3] == L"墙体");
    CStringArray copy;
    copy.Copy(names);
    names.RemoveAll();
    EXPECT_EQ(copy.GetSize(), 4);
}

TEST(CMap, FindsTextsByPlainPointers)
{
    CMap<CString, const wchar_t*, int, int> map(10);
    wchar_t key[] = L"C:\\KxArxBase.arx";
    map.SetAt(key, 1);
    key[0] = L'D';
    int value = 0;
    EXPECT_TRUE(map.Lookup(L"C:\\KxArxBase.arx", value));
    EXPECT_EQ(value, 1);
    EXPECT_FALSE(map.Lookup(key, value));
    map[L"C:\\KxArxBase.arx"] = 2;
    EXPECT_EQ(map.GetCount(), 1);
    EXPECT_EQ(map.PLookup(L"C:\\KxArxBase.arx")->value, 2);
    EXPECT_TRUE(map.RemoveKey(L"C:\\KxArxBase.arx"));
    EXPECT_FALSE(map.RemoveKey(L"C:\\KxArxBase.arx"));
    EXPECT_TRUE(map.IsEmpty());
}

TEST(CMap, WalksEveryPairOnceWhileThemAreRemoved)
{
    CMap<int, int, CString, const wchar_t*> map;
    map.InitHashTable(7);
    for (int i = 0; i < 100; ++i)
        map.SetAt(i * 16, L"x");
    map.InitHashTable(31);   // not while it holds something
    EXPECT_EQ(map.GetHashTableSize(), 7u);
    std::set<int> seen;
    for (POSITION at = map.GetStartPosition(); at != nullptr;) {
        int key = -1;
        CString value;
        map.GetNextAssoc(at, key, value);
        EXPECT_TRUE(seen.insert(key).second);
        EXPECT_TRUE(map.RemoveKey(key));
    }
    EXPECT_EQ(seen.size(), 100u);
    EXPECT_EQ(map.GetCount(), 0);
    EXPECT_EQ(map.GetStartPosition(), nullptr);
}

TEST(CMap, TakesPointersAndLongNumbersAsKeys)
{
    CMap<void*, void*, int, int> pointers;
    int places[64];
    for (int& place : places)
        pointers[&place] = int(&place - places);
    CMap<LONGLONG, LONGLONG, int, int> numbers;
    for (LONGLONG i = 0; i < 64; ++i)
        numbers[i << 40] = int(i);
    for (int i = 0; i < 64; ++i) {
        EXPECT_EQ(pointers[&places[i]], i);
        EXPECT_EQ(numbers[LONGLONG(i) << 40], i);
    }
    EXPECT_EQ(numbers.GetCount(), 64);
}

TEST(CList, KeepsPositionsOfItemsThatStay)
{
    CList<int, int> list;
    const POSITION two = list.AddTail(2);
    list.AddHead(1);
    list.AddTail(4);
    list.InsertBefore(list.FindIndex(2), 3);
    list.RemoveAt(list.GetHeadPosition());
    EXPECT_EQ(list.GetAt(two), 2);
    std::string forwards, backwards;
    for (POSITION at = list.GetHeadPosition(); at != nullptr;)
        forwards += std::to_string(list.GetNext(at));
    for (POSITION at = list.GetTailPosition(); at != nullptr;)
        backwards += std::to_string(list.GetPrev(at));
    EXPECT_EQ(forwards, "234");
    EXPECT_EQ(backwards, "432");
    EXPECT_EQ(list.Find(4, two), list.GetTailPosition());
    EXPECT_EQ(list.Find(2, two), nullptr);
    EXPECT_EQ(list.RemoveTail(), 4);
    EXPECT_EQ(list.RemoveHead(), 2);
    EXPECT_EQ(list.RemoveHead(), 3);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetTailPosition(), nullptr);
}

}   // namespace
