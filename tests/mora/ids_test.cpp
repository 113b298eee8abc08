#include <gtest/gtest.h>
#include <map>
#include <mora/ARenderer.h>
#include <mora/EntityId.h>
#include <mora/SelectionHolder.h>

using namespace ZELVizCore;

namespace
{

RenderId visualisation(std::vector<unsigned long long> const& values)
{
    return {values, RenderId::OriginEnum::Visualisation};
}

} // namespace

TEST(RenderId, OrdersByOriginThenByPath)
{
    RenderId const ascending[] = {
        RenderId({9, 9}, RenderId::OriginEnum::Host),
        visualisation({1}),
        visualisation({1, 2}),
        visualisation({1, 2, 0}),
        visualisation({1, 3}),
        visualisation({1, ~0ull}),
        visualisation({2}),
    };
    for (auto const& a : ascending)
        for (auto const& b : ascending) EXPECT_EQ(a < b, &a < &b) << &a - ascending << ' ' << &b - ascending;
}

TEST(RenderId, LengthIsCutAndPadded)
{
    RenderId id = visualisation({1, 2, 3});
    id.SetLength(2);
    EXPECT_EQ(id, visualisation({1, 2}));
    id.AddValue(7);
    id.SetLength(4);
    EXPECT_EQ(id, visualisation({1, 2, 7, 0}));
    id.SetLength(-1);
    EXPECT_EQ(id.Length(), 0);
#ifndef NDEBUG
    EXPECT_DEATH(id[0], "RenderId::operator.*index 0 of 0");
#endif
}

TEST(EntityId, IsAKeyOverAllThreeFields)
{
    std::map<EntityId, int> map;
    int count = 0;
    for (unsigned long long parent : {1, 2})
        for (EntityType type : {EntityType::Face, EntityType::Edge})
            for (unsigned long long id : {1, 2}) map[EntityId(parent, type, id)] = ++count;
    EXPECT_EQ(map.size(), 8u);
    EXPECT_EQ(map.at(EntityId(1, EntityType::Face, 2)), 2);
    EXPECT_FALSE(map.contains(EntityId()));
}

TEST(EntityId, TypesComeFromTheirNumbers)
{
    EXPECT_EQ(EntityId::GetTypeFromInt(10104), EntityType::GeometricTolerance);
    EXPECT_EQ(EntityId::GetTypeFromInt(80000), EntityType::Brep);
    EXPECT_EQ(EntityId::GetTypeFromInt(10011), EntityType::Undefined);
    EXPECT_EQ(EntityId::GetTypeFromInt(0x1'0000'2710ull), EntityType::Undefined) << "the upper half counts";
    EXPECT_EQ(EntityId().type, EntityType{0xffffffff});
    EXPECT_STREQ(ToWord(EntityType::GeometricTolerance), L"GeomTol");
    EXPECT_STREQ(ToWord(EntityType{12345}), L"Unknown");
}

TEST(EntityId, AnnotationsAreWhatStandsInTheirSubTree)
{
    for (int code : {10005, 10010, 10012, 10100, 10101, 10105})
        EXPECT_TRUE(EntityId(0, EntityId::GetTypeFromInt(code), 1).IsAnnotation()) << code;
    for (int code : {10000, 10003, 10006, 10008, 11000, 40000, 80000, 5})
        EXPECT_FALSE(EntityId(0, EntityId::GetTypeFromInt(code), 1).IsAnnotation()) << code;
}

TEST(SelectionHolder, HoldsANodeOnce)
{
    SelectionHolder selection;
    selection.Add(visualisation({1, 2}));
    selection.Add(visualisation({1, 2}));
    EXPECT_EQ(selection.Ids().size(), 1u);
    EXPECT_TRUE(selection.Contains(visualisation({1, 2})));
    EXPECT_FALSE(selection.Contains(visualisation({1})));
    selection.Clear();
    EXPECT_FALSE(selection.Contains(visualisation({1, 2})));
}

TEST(ARenderer, AModelIdFitsASignedField)
{
    EXPECT_GE(static_cast<long long>(ARenderer::getSignedId(~0ull)), 0);
    EXPECT_NE(ARenderer::getSignedId(0x7f00'1234'5678ull), ARenderer::getSignedId(0x7f00'1234'5680ull));
}
