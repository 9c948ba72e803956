// Growth and editing of arrays.
#include "rx/AcArray.h"
#include <gtest/gtest.h>
#include <string>

namespace {

std::string Joined(const AcArray<std::string>& array)
{
    std::string all;
    for (const std::string& each : array)
        all += each;
    return all;
}

AcArray<std::string> Letters(const char* letters)
{
    AcArray<std::string> array;
    for (; *letters != 0; ++letters)
        array.append(std::string(1, *letters));
    return array;
}

struct Wide {
    char bytes[144];
};

}   // namespace

// By the larger of the growth length and the length, and by at most 65,536 bytes: 455 records of 144 bytes.
TEST(Array, GrowsByLengthUpToALimit)
{
    struct Row {
        int physical, grow, expected;
    };
    static const Row rows[] = {
        {0, 8, 8}, {8, 8, 16}, {16, 8, 32}, {4, 8, 12}, {455, 8, 910}, {456, 8, 911}, {2000, 8, 2455}, {10, 1000, 1010},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.physical);
        AcArray<Wide> array(row.physical, row.grow);
        array.setLogicalLength(row.physical);
        array.append(Wide());
        EXPECT_EQ(array.physicalLength(), row.expected);
    }
}

TEST(Array, InsertsAndRemoves)
{
    AcArray<std::string> array = Letters("abcdef");
    array.removeSubArray(1, 2);
    EXPECT_EQ(Joined(array), "adef");
    array.insertAt(0, array[3]);   // a value of the array itself
    EXPECT_EQ(Joined(array), "fadef");
    EXPECT_TRUE(array.remove("f", 1));
    EXPECT_EQ(Joined(array), "fade");
    EXPECT_FALSE(array.remove("x"));
    array.removeFirst().removeLast();
    EXPECT_EQ(Joined(array), "ad");
    array.append(array);
    EXPECT_EQ(Joined(array), "adad");
    array.reverse();
    EXPECT_EQ(Joined(array), "dada");
}

TEST(Array, Finds)
{
    const AcArray<std::string> array = Letters("abca");
    EXPECT_EQ(array.find("a"), 0);
    EXPECT_EQ(array.findFrom("a", 1), 3);
    EXPECT_EQ(array.find("x"), -1);
    EXPECT_TRUE(array.contains("c"));
    EXPECT_FALSE(array.contains("b", 2));
    int at = 7;
    EXPECT_FALSE(array.find("x", at));
    EXPECT_EQ(at, 7);
    EXPECT_TRUE(array.find("c", at));
    EXPECT_EQ(at, 2);
}

TEST(Array, CopiesAreIndependent)
{
    AcArray<std::string> one = Letters("ab");
    AcArray<std::string> other(one);
    other.setAt(0, "x");
    EXPECT_EQ(Joined(one), "ab");
    one = other;
    EXPECT_TRUE(one == other);
    one.removeAll();
    EXPECT_EQ(Joined(other), "xb");
    one.setLogicalLength(1);
    EXPECT_EQ(one[0], "") << "what was removed does not come back";
}
