// Text, matrices, boxes and colours.
#include "support.h"

using namespace HPS;

namespace
{

struct TextCase {
    std::wstring wide;
    std::string bytes;
};

TEST(Text, WideAndNarrow)
{
    TextCase const cases[] = {
        {L"", ""},
        {L"plain", "plain"},
        {L"\u00e4\u00f6\u00fc", "\xc3\xa4\xc3\xb6\xc3\xbc"},
        {L"\u2293", "\xe2\x8a\x93"},
        {L"\U0001F600x", "\xf0\x9f\x98\x80x"},
    };
    for (auto const& test : cases) {
        UTF8 const text(test.wide);
        EXPECT_EQ(text.GetBytes(), test.bytes);
        EXPECT_EQ(text.GetLength(), test.bytes.size());
        EXPECT_EQ(UTF8(test.bytes.c_str()).ToWStr(), test.wide);
    }
    EXPECT_TRUE(UTF8(static_cast<char const*>(nullptr)).Empty());
    EXPECT_TRUE(UTF8(static_cast<wchar_t const*>(nullptr)).Empty());
    EXPECT_EQ(UTF8("a") + UTF8(L"b"), "ab");
}

TEST(Text, WhatIsNoUnicodeIsReplaced)
{
    EXPECT_EQ(UTF8("a\xff").ToWStr(), L"a\ufffd");
    EXPECT_EQ(UTF8("\xc3").ToWStr(), L"\ufffd") << "cut short";
    EXPECT_EQ(UTF8("\xc0\xaf").ToWStr(), L"\ufffd\ufffd") << "longer than needed";
    EXPECT_EQ(UTF8("\xed\xa0\x80").ToWStr(), L"\ufffd\ufffd\ufffd") << "half of a pair";
    EXPECT_EQ(UTF8("\xf4\x90\x80\x80").ToWStr().front(), L'\ufffd') << "beyond the last character";
    EXPECT_EQ(UTF8(std::wstring(1, wchar_t(0xD800))), "\xef\xbf\xbd");
}

TEST(Matrix, EachStepActsAfterTheOnesBefore)
{
    EXPECT_EQ(MatrixKit().Translate(1, 2, 3).Scale(2, 2, 2).Transform(Point()), Point(2, 4, 6));
    EXPECT_EQ(MatrixKit().Scale(2, 2, 2).Translate(1, 2, 3).Transform(Point()), Point(1, 2, 3));
    EXPECT_EQ(MatrixKit().Rotate(0, 0, 90).Transform(Point(1, 0, 0)), Point(0, 1, 0));
    EXPECT_EQ(MatrixKit().Rotate(90, 0, 0).Transform(Point(0, 1, 0)), Point(0, 0, 1));
    EXPECT_EQ(MatrixKit().Rotate(0, 90, 0).Transform(Point(0, 0, 1)), Point(1, 0, 0));
    EXPECT_EQ(MatrixKit().Rotate(90, 0, 90).Transform(Point(0, 1, 0)), Point(0, 0, 1)) << "x first, then z";
    EXPECT_EQ(MatrixKit().Translate(5, 5, 5).Transform(Vector(1, 0, 0)), Vector(1, 0, 0));
}

TEST(Matrix, TheTranslationStandsInElements12To14)
{
    std::vector<float> elements;
    MatrixKit().Translate(1, 2, 3).ShowElements(elements);
    EXPECT_THAT(elements, testing::ElementsAre(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1));
    EXPECT_EQ(MatrixKit(elements.data()), MatrixKit().Translate(1, 2, 3));
}

TEST(Matrix, InverseUndoes)
{
    auto const matrix = MatrixKit().Rotate(10, 20, 30).Scale(1, 2, -3).Translate(4, 5, 6);
    MatrixKit inverse;
    ASSERT_TRUE(matrix.ShowInverse(inverse));
    auto const back = inverse.Transform(matrix.Transform(Point(1, 2, 3)));
    EXPECT_NEAR(back.x, 1, 1e-5);
    EXPECT_NEAR(back.y, 2, 1e-5);
    EXPECT_NEAR(back.z, 3, 1e-5);
    EXPECT_TRUE(matrix.IsMirrored());
    EXPECT_FALSE(MatrixKit().Scale(1, 0, 1).ShowInverse(inverse));
    EXPECT_TRUE(MatrixKit().Scale(1, 0, 1).Translate(1, 1, 1).Invert() ==
                MatrixKit().Scale(1, 0, 1).Translate(1, 1, 1));
    EXPECT_TRUE(MatrixKit().IsIdentity() && MatrixKit().Rotate(0, 360, 0).IsIdentity());
}

TEST(Matrix, OfASegmentIsRefusedIfItIsNoNumber)
{
    auto segment = Database::CreateRootSegment();
    segment.GetModellingMatrixControl().SetElement(0, std::numeric_limits<float>::quiet_NaN());
    MatrixKit matrix;
    EXPECT_FALSE(segment.ShowModellingMatrix(matrix));
    segment.Delete();
}

TEST(Boxes, StartEmpty)
{
    Cuboid_3D<float> box;
    EXPECT_FALSE(box.IsValid());
    EXPECT_FALSE(box.Merge(SimpleCuboid()).IsValid());
    EXPECT_TRUE(box.Merge(Point(1, 2, 3)).IsValid());
    EXPECT_EQ(box.Merge(SimpleCuboid({-1, 0, 0}, {0, 5, 0})), SimpleCuboid({-1, 0, 0}, {1, 5, 3}));
}

} // namespace
