#include "read_support.h"

#include "file_signature.h"
#include "text_encoding.h"

#include <gtest/gtest.h>
#include <iostream>

#include <algorithm>

using namespace ReadSupport;

TEST(Recognition, TheExtensionPlaysNoPart)
{
    struct {
        char const* file;
        bool isMesh;
    } const files[] = {{"parts/red_cube_blue_cylinder.step", false},
                       {"iges/camera_mount.iges", false},
                       {"brep/mayo_cube.brep", false},
                       {"gltf/car.glb", true},
                       {"mesh/cube_with_materials.obj", true},
                       {"mesh/low_cost_robot_gripper_static_part.stl", true}};
    TemporaryFolder const folder;
    for (auto const& [name, isMesh] : files) {
        auto const file = modelFolder() / name;
        REQUIRE_MODEL_FILE(file);
        for (auto const* const wrong : {"model.stl", "model.step", "model.txt", "model"}) {
            auto const read = ReadSupport::read(folder.write(wrong, bytesOf(file)));
            EXPECT_EQ(read->result.outcome, IoOutcome::Done) << name << " as " << wrong;
            EXPECT_EQ(read->result.graphical, isMesh) << name << " as " << wrong;
        }
    }
}

TEST(Recognition, LooksAtTheStartOnly)
{
    std::string zeros = R"({"asset":{"version":"2.0"},"scene":0,"nodes":[)";
    for (int i = 0; i < 1000; ++i) zeros += "0, ";
    struct {
        std::string_view head;
        bool wholeFile;
        ModelFormat format;
    } const cases[] = {
        {"ISO-10303-21;", true, ModelFormat::Step},
        {"/* made by hand */\r\nISO-10303-21;", true, ModelFormat::Step},
        {"\n\nDBRep_DrawableShape\n", true, ModelFormat::Brep},
        {"glTF\2", true, ModelFormat::Gltf},
        {"\xEF\xBB\xBF { \"asset\" : {} }", true, ModelFormat::Gltf},
        {zeros, false, ModelFormat::Gltf},
        {"{\"name\":\"package\"}", true, ModelFormat::Unknown},
        {"solid x\n facet normal 0 0 1\n", true, ModelFormat::Stl},
        {"solid advice for cooks\nTake an egg.\n", true, ModelFormat::Unknown},
        {"mtllib a.mtl\nv 0 0 0\nf 1 1 1\n", true, ModelFormat::Obj},
        {"g is the acceleration\nv the speed\nIt was the best of times\nand so on\n", true,
         ModelFormat::Unknown},
        {"", true, ModelFormat::Unknown},
    };
    for (auto const& [head, wholeFile, format] : cases)
        EXPECT_EQ(recogniseFormat(head, wholeFile), format) << head;
}

TEST(Recognition, ABinaryMeshMustHoldWhatItPromises)
{
    std::string bytes(84 + 50, '\0');
    bytes[80] = 1;
    EXPECT_EQ(recogniseFormat(bytes, true), ModelFormat::Stl);
    bytes[80] = 2;
    EXPECT_EQ(recogniseFormat(bytes, true), ModelFormat::Unknown);
    bytes[80] = 1;
    bytes[84 + 3] = 0x7F; // a normal of length 1e38
    EXPECT_EQ(recogniseFormat(bytes, true), ModelFormat::Unknown);
}

TEST(TextEncoding, NamesAreNeverLost)
{
    struct {
        std::string_view bytes;
        std::wstring_view text;
    } const cases[] = {
        {"plain", L"plain"},     {"gr\xC3\xBCn", L"gr\u00FCn"}, {"v\xE1stago", L"v\u00E1stago"},
        {"5 \x80", L"5 \u20AC"}, {"\x81", L"\u0081"},           {"\xC1\xE3\xBC\xFE", L"\u96F6\u4EF6"},
    };
    for (auto const& [bytes, text] : cases) EXPECT_EQ(wideFromBytes(bytes), text);
    char16_t const lone[] = {u'a', 0xD800, u'b'};
    EXPECT_EQ(wideFromUtf16(lone, 3), L"a\uFFFDb");
    char16_t const pair[] = {0xD83D, 0xDE00};
    EXPECT_EQ(wideFromUtf16(pair, 2), std::wstring(1, wchar_t(0x1F600)));
}

TEST(TextEncoding, DifferentNamesGiveDifferentIds)
{
    EXPECT_EQ(idText(L"Arm_1"), L"Arm_1");
    EXPECT_EQ(idText(L"a/b c"), L"a%2Fb%20c");
    EXPECT_NE(idText(L"a%2Fb"), idText(L"a/b"));
    EXPECT_EQ(idText(L"\u00E1"), L"%C3%A1");
}

TEST(Reading, LeavesTheProgramsOutputAsItWas)
{
    std::streambuf* const before = std::cout.rdbuf();
    TemporaryFolder const folder;
    read(folder.write("facet.stl", "solid s\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\n"
                                   "vertex 0 1 0\nendloop\nendfacet\nendsolid s\n"));
    EXPECT_EQ(std::cout.rdbuf(), before);
    EXPECT_TRUE(std::cout.good());
}

TEST(Reading, ProgressRisesToTheEndAndCancelStops)
{
    auto const file = modelFolder() / "nist/nist_ctc_05_asme1_ap242-e1.stp";
    REQUIRE_MODEL_FILE(file);
    static std::vector<double> seen;
    seen.clear();
    auto const done = read(file, false, [](double share, bool&) { seen.push_back(share); });
    EXPECT_EQ(done->result.outcome, IoOutcome::Done);
    ASSERT_GT(seen.size(), 5u);
    EXPECT_TRUE(std::ranges::is_sorted(seen));
    EXPECT_EQ(seen.back(), 1.0);

    for (double const limit : {0.0, 0.2, 0.6}) {
        static double stopAt;
        stopAt = limit;
        auto const stopped = read(file, false, [](double share, bool& cancel) { cancel = share >= stopAt; });
        EXPECT_EQ(stopped->result.outcome, IoOutcome::Cancelled) << limit;
    }
}
