#include "read_support.h"

#include "step_text.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace ReadSupport;

namespace
{
std::string const Header =
    "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
    "FILE_SCHEMA(('AUTOMOTIVE_DESIGN'));\nENDSEC;\nDATA;\n";
std::string const Footer = "ENDSEC;\nEND-ISO-10303-21;\n";

struct BrokenFile {
    char const* name;
    std::string bytes;
    IoOutcome outcome;
};

// Each level uses the next one twice; the last one is a triangle, or uses the first again.
std::string endlessGltf(int levels, bool isRing)
{
    std::string text =
        "{\"asset\":{\"version\":\"2.0\"},\"scene\":0,\"scenes\":[{\"nodes\":[0]}],\"nodes\":[";
    for (int i = 0; i < levels; ++i) {
        auto const next = std::to_string(i + 1);
        text += "{\"children\":[" + next + "," + next + "]},";
    }
    return text + (isRing ? "{\"children\":[0]}" : "{\"mesh\":0}") + "],\"meshes\":[]}";
}

// A triangle as the mesh of nodes.
std::string gltfOf(std::string const& scenes, std::string const& nodes)
{
    return R"({"asset":{"version":"2.0"},"scene":0,"scenes":)" + scenes + R"(,"nodes":)" + nodes +
           R"(,"meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}],
"accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3","min":[0,0,0],"max":[1,1,0]}],
"bufferViews":[{"buffer":0,"byteLength":36}],"buffers":[{"byteLength":36,"uri":"data:application/octet-stream;base64,)" +
           "AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAA" + "\"}]}";
}

std::string deepGltf(int levels)
{
    std::string nodes = "[";
    for (int i = 1; i <= levels; ++i) nodes += "{\"mesh\":0,\"children\":[" + std::to_string(i) + "]},";
    return gltfOf(R"([{"nodes":[0]}])", nodes + "{\"mesh\":0}]");
}

std::string endlessStep(int levels, bool isRing)
{
    auto text = Header + "#1=APPLICATION_CONTEXT('');\n#2=PRODUCT_CONTEXT('',#1,'');\n"
                         "#3=PRODUCT_DEFINITION_CONTEXT('',#1,'');\n";
    auto const definition = [](int level) { return "#" + std::to_string(10 * level + 12); };
    int use = 1'000'000;
    for (int i = 0; i <= levels; ++i) {
        auto const number = std::to_string(10 * i + 10), formation = std::to_string(10 * i + 11);
        text += "#" + number + "=PRODUCT('" + number + "','','',(#2));\n#" + formation +
                "=PRODUCT_DEFINITION_FORMATION('','',#" + number + ");\n" + definition(i) +
                "=PRODUCT_DEFINITION('','',#" + formation + ",#3);\n";
        for (int k = 0; k < 2 && (i < levels || isRing); ++k)
            text += "#" + std::to_string(use++) + "=NEXT_ASSEMBLY_USAGE_OCCURRENCE('','',''," +
                    definition(i) + "," + definition(i < levels ? i + 1 : 0) + ",$);\n";
    }
    return text + Footer;
}

BrokenFile const BrokenFiles[] = {
    {"empty", "", IoOutcome::Damaged},
    {"random text", "This is a letter, not a model.\n", IoOutcome::Damaged},
    {"header only", Header, IoOutcome::Damaged},
    {"no entity", Header + Footer, IoOutcome::Damaged},
    {"only a point", Header + "#1=CARTESIAN_POINT('',(0.,0.,0.));\n" + Footer, IoOutcome::NothingToShow},
    {"scope",
     Header + "#1=&SCOPE\n#2=CARTESIAN_POINT('',(0.,0.,0.));\nENDSCOPE CARTESIAN_POINT('',(0.,0.,0.));\n" +
         Footer,
     IoOutcome::Damaged},
    {"glb of nothing", std::string("glTF\2\0\0\0\14\0\0\0", 12), IoOutcome::Damaged},
    {"gltf cut off", "{\"asset\":{\"version\":\"2.0\"},\"meshes\":[{\"primitives\":[", IoOutcome::Damaged},
    {"brep cut off", "DBRep_DrawableShape\n\nCASCADE Topology V1, (c) Matra-Datavision\nLocations 1\n",
     IoOutcome::Damaged},
    {"gltf of too many places", endlessGltf(40, false), IoOutcome::Damaged},
    {"gltf that contains itself", endlessGltf(3, true), IoOutcome::Damaged},
    {"gltf with a ring beside its roots",
     gltfOf(R"([{"nodes":[1]}])", R"([{"mesh":0},{"children":[2]},{"mesh":0,"children":[1]}])"),
     IoOutcome::Damaged},
    {"gltf with a ring of numbers as text",
     gltfOf(R"([{"nodes":["0"]}])", R"([{"mesh":0,"children":["0"]}])"), IoOutcome::Damaged},
    {"gltf with a ring of names", gltfOf(R"({"0":{"nodes":["a"]}})", R"({"a":{"mesh":0,"children":["a"]}})"),
     IoOutcome::Damaged},
    {"gltf of more corners than bytes",
     [] {
         auto text = gltfOf(R"([{"nodes":[0]}])", R"([{"mesh":0}])");
         return text.replace(text.find("\"count\":3"), 9, "\"count\":4294967295");
     }(),
     IoOutcome::Damaged},
    {"gltf that nests without end", deepGltf(60'000), IoOutcome::Damaged},
    {"step of too many places", endlessStep(40, false), IoOutcome::Damaged},
    {"step that contains itself", endlessStep(3, true), IoOutcome::Damaged},
    {"iges header only", "                                                                        S      1\n",
     IoOutcome::Damaged},
};

class BrokenFileTest : public testing::TestWithParam<BrokenFile>
{
};

void expectFailure(ReadModel const& read)
{
    EXPECT_FALSE(read.result.error.empty());
    EXPECT_EQ(read.result.error.find(L'\n'), std::wstring::npos);
}
} // namespace

TEST_P(BrokenFileTest, IsRefusedWithACause)
{
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("file.step", GetParam().bytes));
    EXPECT_EQ(read->result.outcome, GetParam().outcome);
    expectFailure(*read);
}

INSTANTIATE_TEST_SUITE_P(Files, BrokenFileTest, testing::ValuesIn(BrokenFiles), [](auto const& test) {
    std::string name = test.param.name;
    std::ranges::replace(name, ' ', '_');
    return name;
});

TEST(BrokenFiles, NestingAsDeepAsThatOfAnyMachineIsNone)
{
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("deep.gltf", deepGltf(100)));
    EXPECT_EQ(read->result.outcome, IoOutcome::Done);
}

TEST(BrokenFiles, CollectedOnesHaveAClearOutcome)
{
    auto const folder = modelFolder() / "broken";
    REQUIRE_MODEL_FILE(folder);
    std::map<std::string, IoOutcome> const expected = {
        {"assimp_malformed.obj", IoOutcome::Done},
        {"gltfval_invalid_json_chunk.glb", IoOutcome::Damaged},
        {"gltfval_truncated_chunk_data.glb", IoOutcome::Damaged},
        {"stepcode_missing_and_required.p21", IoOutcome::NothingToShow},
        {"stepcode_select_segfault_2.stp", IoOutcome::NothingToShow},
    };
    for (auto const& [name, outcome] : expected) {
        auto const read = ReadSupport::read(folder / name);
        EXPECT_EQ(read->result.outcome, outcome) << name;
        if (outcome != IoOutcome::Done) expectFailure(*read);
    }
}

TEST(BrokenFiles, AStepFileThatEndsEarlyIsDamagedWhereverItEnds)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step";
    REQUIRE_MODEL_FILE(file);
    auto const bytes = bytesOf(file);
    TemporaryFolder const folder;
    for (std::size_t const share : {3u, 10u, 35u, 50u, 70u, 90u, 99u}) {
        auto const cut =
            folder.write("cut.step", std::string_view(bytes).substr(0, bytes.size() * share / 100));
        auto const read = ReadSupport::read(cut);
        EXPECT_EQ(read->result.outcome, IoOutcome::Damaged) << share;
        expectFailure(*read);
    }
}

TEST(BrokenFiles, ABrepFileThatEndsEarlyIsDamagedWhereverItEnds)
{
    auto const file = modelFolder() / "brep/mayo_cube.brep";
    REQUIRE_MODEL_FILE(file);
    auto const bytes = bytesOf(file);
    TemporaryFolder const folder;
    for (std::size_t length = 30; length + 10 < bytes.size(); length += 97) {
        auto const read =
            ReadSupport::read(folder.write("cut.brep", std::string_view(bytes).substr(0, length)));
        EXPECT_EQ(read->result.outcome, IoOutcome::Damaged) << length;
    }
}

// What a mesh in text has lost is said, wherever it was cut.
TEST(BrokenFiles, AMeshInTextThatEndsEarlyIsShownWithAWarning)
{
    std::string const facet =
        " facet normal 0 0 1\n  outer loop\n   vertex 0 0 0\n   vertex 1 0 0\n   vertex 0 1 0\n"
        "  endloop\n endfacet\n";
    std::string const stl = "solid plate\n" + facet + facet + facet,
                      obj = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
    struct {
        char const* name;
        std::string bytes;
        bool isWhole;
    } const files[] = {
        {"whole.stl", stl + "endsolid plate\n", true},
        {"cut.stl", stl, false},
        {"line.stl", stl + facet.substr(0, 30), false},
        {"whole.obj", obj, true},
        {"no_newline.obj", obj + "f 3 2 1", true},
        {"cut.obj", obj + "f 1 2", false},
        {"point.obj", obj + "v 1", false},
    };
    TemporaryFolder const folder;
    for (auto const& file : files) {
        auto const read = ReadSupport::read(folder.write(file.name, file.bytes));
        EXPECT_EQ(read->result.outcome, IoOutcome::Done) << file.name;
        EXPECT_EQ(read->result.warnings.empty(), file.isWhole) << file.name;
    }
}

TEST(BrokenFiles, WrongReferencesAndNumbersDoNotEndTheProcess)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step";
    REQUIRE_MODEL_FILE(file);
    auto const good = bytesOf(file);
    TemporaryFolder const folder;
    // Each reference to the first entity of a kind is bent to another entity, or to none.
    for (auto const* const kind : {"ADVANCED_FACE", "EDGE_LOOP", "VERTEX_POINT", "PLANE", "CLOSED_SHELL"}) {
        auto const entity = good.find(std::string(" = ") + kind);
        ASSERT_NE(entity, std::string::npos) << kind;
        auto const line = good.rfind('#', entity);
        auto const id = good.substr(line, entity - line);
        for (auto const* const target : {"#8 ", "#99999 "}) {
            auto bad = good;
            for (auto at = bad.find(id); at != std::string::npos; at = bad.find(id, at + 1)) {
                auto const next = bad[at + id.size()];
                if (at != line && (next == ',' || next == ' ' || next == ')'))
                    bad.replace(at, id.size(), target);
            }
            auto const read = ReadSupport::read(folder.write("bent.step", bad));
            if (read->result.outcome != IoOutcome::Done)
                expectFailure(*read);
            else
                EXPECT_GT(read->model.GetCounts().faces, 0u) << kind << target;
        }
    }
}

TEST(StepText, CountsWhatIsNotDefined)
{
    auto const report = checkStepText(
        Header + "#1=A(#2,#3,'#4 in a ''string''');\n/* #5 */\n#2 = B(#1);\n#2=C();\n" + Footer);
    EXPECT_FALSE(report.refusal);
    EXPECT_EQ(report.entityCount, 3u);
    EXPECT_EQ(report.danglingCount, 1u);
    EXPECT_EQ(report.duplicateCount, 1u);
}

TEST(StepText, HolesInWhoMadeTheFileDoNotCount)
{
    auto const report = checkStepText(
        Header + "#1 = PERSON_AND_ORGANIZATION(#7,#8);\n#2=DATE_AND_TIME(#9,#10);\n#3=A(#11);\n" + Footer);
    EXPECT_EQ(report.danglingCount, 1u);
}

TEST(StepText, TheEndInsideAStringIsNoEnd)
{
    EXPECT_TRUE(checkStepText(Header + "#1=A('END-ISO-10303-21;');\n").refusal);
    EXPECT_TRUE(checkStepText(Header + "#1=A('never closed;\n" + Footer).refusal);
}
