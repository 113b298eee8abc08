#include "ZELObjectMapper.h"

#include <gtest/gtest.h>

namespace ZelVizBase
{
namespace
{

class ObjectMapperTest : public testing::Test
{
protected:
    HPS::SegmentKey Root = HPS::Database::CreateRootSegment();
    HPS::Key A = Root.Subsegment("a", true);
    HPS::Key B = Root.Subsegment("b", true);
    HPS::Key Found;
    ZELObjectMapper Mapper;

    ~ObjectMapperTest() override { Root.Delete(); }
};

TEST_F(ObjectMapperTest, KeepsNumbersAndTextsApart)
{
    Mapper.Add(7, A);
    Mapper.Add(L"7", B);
    ASSERT_TRUE(Mapper.Get(7, Found));
    EXPECT_EQ(Found, A);
    ASSERT_TRUE(Mapper.Get(L"7", Found));
    EXPECT_EQ(Found, B);
}

TEST_F(ObjectMapperTest, AddReplacesTheKeyOfAPid)
{
    Mapper.Add(L"part", A);
    Mapper.Add(L"part", B);
    ASSERT_TRUE(Mapper.Get(L"part", Found));
    EXPECT_EQ(Found, B);
    std::wstring pid = L"untouched";
    EXPECT_FALSE(Mapper.Get(A, pid));
    EXPECT_EQ(pid, L"untouched");
    EXPECT_TRUE(Mapper.Get(B, pid));
    EXPECT_EQ(pid, L"part");
}

TEST_F(ObjectMapperTest, ReverseLookupTakesTheLowestPid)
{
    Mapper.Add(9, A);
    Mapper.Add(4, A);
    unsigned long long pid = 0;
    ASSERT_TRUE(Mapper.Get(A, pid));
    EXPECT_EQ(pid, 4u);
}

TEST_F(ObjectMapperTest, AMissLeavesTheOutputAsItWas)
{
    Found = A;
    EXPECT_FALSE(Mapper.Get(1, Found));
    EXPECT_FALSE(Mapper.Get(L"1", Found));
    EXPECT_EQ(Found, A);
    unsigned long long pid = 5;
    EXPECT_FALSE(Mapper.Get(A, pid));
    EXPECT_EQ(pid, 5u);
    Mapper.Remove(1);
    Mapper.Remove(L"1");
    Mapper.Remove(A);
}

TEST_F(ObjectMapperTest, RemovingAKeyTakesOneEntryTextsFirst)
{
    Mapper.Add(1, A);
    Mapper.Add(L"one", A);
    Mapper.Remove(A);
    EXPECT_FALSE(Mapper.Get(L"one", Found));
    EXPECT_TRUE(Mapper.Get(1, Found));
    Mapper.Remove(A);
    EXPECT_FALSE(Mapper.Get(1, Found));
}

TEST_F(ObjectMapperTest, ClearEmptiesBothForms)
{
    Mapper.Add(1, A);
    Mapper.Add(L"one", A);
    Mapper.Clear();
    EXPECT_FALSE(Mapper.Get(1, Found));
    EXPECT_FALSE(Mapper.Get(L"one", Found));
}

} // namespace
} // namespace ZelVizBase
