// Formats of the mesh library, on small files made here: a box of 10 x 20 x 30 in each.
#include "read_support.h"

#include "ReaderRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <random>

#include <zlib.h>

using namespace ReadSupport;

namespace
{
std::array<std::array<int, 3>, 8> const Corners = {
    {{0, 0, 0}, {10, 0, 0}, {10, 20, 0}, {0, 20, 0}, {0, 0, 30}, {10, 0, 30}, {10, 20, 30}, {0, 20, 30}}};
std::array<std::array<int, 3>, 12> const Triangles = {{{0, 3, 2},
                                                       {0, 2, 1},
                                                       {4, 5, 6},
                                                       {4, 6, 7},
                                                       {0, 1, 5},
                                                       {0, 5, 4},
                                                       {1, 2, 6},
                                                       {1, 6, 5},
                                                       {2, 3, 7},
                                                       {2, 7, 6},
                                                       {3, 0, 4},
                                                       {3, 4, 7}}};

template <typename List>
std::string lines(List const& list, std::string const& before, std::string const& after)
{
    std::string text;
    for (auto const& [a, b, c] : list)
        text += before + std::to_string(a) + ' ' + std::to_string(b) + ' ' + std::to_string(c) + after;
    return text;
}

// The lower corners are blue, the upper ones red.
std::string plyText()
{
    std::string text =
        "ply\nformat ascii 1.0\nelement vertex 8\nproperty float x\nproperty float y\nproperty float z\n"
        "property uchar red\nproperty uchar green\nproperty uchar blue\n"
        "element face 12\nproperty list uchar int vertex_indices\nend_header\n";
    for (auto const& [x, y, z] : Corners)
        text += std::to_string(x) + ' ' + std::to_string(y) + ' ' + std::to_string(z) +
                (z ? " 255 0 0\n" : " 0 0 255\n");
    return text + lines(Triangles, "3 ", "\n");
}

std::string plyBinary()
{
    std::string text =
        "ply\nformat binary_little_endian 1.0\nelement vertex 8\nproperty float x\nproperty float y\n"
        "property float z\nelement face 12\nproperty list uchar int vertex_indices\nend_header\n";
    for (auto const& corner : Corners) {
        for (int const x : corner) {
            auto const number = static_cast<float>(x);
            text.append(reinterpret_cast<char const*>(&number), sizeof number);
        }
    }
    for (auto const& triangle : Triangles) {
        text += '\x03';
        text.append(reinterpret_cast<char const*>(triangle.data()), sizeof triangle);
    }
    return text;
}

std::string plyCloud()
{
    return "ply\nformat ascii 1.0\nelement vertex 8\nproperty float x\nproperty float y\nproperty float "
           "z\nend_header\n" +
           lines(Corners, "", "\n");
}

std::string offText()
{
    return "OFF\n8 12 18\n" + lines(Corners, "", "\n") + lines(Triangles, "3 ", "\n");
}

// In centimetres: one box in a group, and a second use of it beside.
std::string colladaText()
{
    return R"(<?xml version="1.0" encoding="utf-8"?>
<COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
<asset><unit meter="0.01" name="centimeter"/><up_axis>Z_UP</up_axis></asset>
<library_effects><effect id="e"><profile_COMMON><technique sid="common"><lambert><diffuse><color>0.2 0.4 0.6 1</color>
</diffuse></lambert></technique></profile_COMMON></effect></library_effects>
<library_materials><material id="m" name="paint"><instance_effect url="#e"/></material></library_materials>
<library_geometries><geometry id="g" name="box"><mesh><source id="p"><float_array id="pa" count="24">)" +
           lines(Corners, " ", "") +
           R"(</float_array><technique_common><accessor source="#pa" count="8" stride="3">
<param name="X" type="float"/><param name="Y" type="float"/><param name="Z" type="float"/></accessor></technique_common></source>
<vertices id="v"><input semantic="POSITION" source="#p"/></vertices>
<triangles material="mm" count="12"><input semantic="VERTEX" source="#v" offset="0"/><p>)" +
           lines(Triangles, " ", "") + R"(</p></triangles></mesh></geometry></library_geometries>
<library_visual_scenes><visual_scene id="s"><node id="n1" name="group"><node id="n2" name="first">
<instance_geometry url="#g"><bind_material><technique_common><instance_material symbol="mm" target="#m"/></technique_common>
</bind_material></instance_geometry></node><node id="n3" name="second"><translate>40 0 0</translate>
<instance_geometry url="#g"><bind_material><technique_common><instance_material symbol="mm" target="#m"/></technique_common>
</bind_material></instance_geometry></node></node></visual_scene></library_visual_scenes>
<scene><instance_visual_scene url="#s"/></scene></COLLADA>)";
}

template <typename Number> void append(std::string& text, Number number)
{
    text.append(reinterpret_cast<char const*>(&number), sizeof number);
}

// An archive of stored entries.
std::string archive(std::vector<std::pair<std::string, std::string>> const& files)
{
    std::string body, directory;
    for (auto const& [name, text] : files) {
        std::string common;
        for (std::uint16_t const field : {20, 0, 0, 0, 0}) append(common, field);
        append(common, static_cast<std::uint32_t>(crc32(0, reinterpret_cast<Bytef const*>(text.data()),
                                                        static_cast<uInt>(text.size()))));
        append(common, static_cast<std::uint32_t>(text.size()));
        append(common, static_cast<std::uint32_t>(text.size()));
        append(common, static_cast<std::uint16_t>(name.size()));
        append(common, std::uint16_t{0});
        directory += "PK\x01\x02" + std::string("\x14\0", 2) + common + std::string(10, '\0');
        append(directory, static_cast<std::uint32_t>(body.size()));
        directory += name;
        body += "PK\x03\x04" + common + name + text;
    }
    std::string end = "PK\x05\x06" + std::string(4, '\0');
    append(end, static_cast<std::uint16_t>(files.size()));
    append(end, static_cast<std::uint16_t>(files.size()));
    append(end, static_cast<std::uint32_t>(directory.size()));
    append(end, static_cast<std::uint32_t>(body.size()));
    append(end, std::uint16_t{0});
    return body + directory + end;
}

// In inches: a pair of boxes, made of the same object. Where it is painted, two of its triangles have colours
// of their own.
std::string packedText(bool painted)
{
    auto vertices = lines(Corners, "<vertex x=\"", "\"/>"),
         triangles = lines(Triangles, "<triangle v1=\"", "\"/>");
    auto const named = [](std::string text, std::array<char const*, 2> names) {
        std::string made;
        int blanks = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            bool const isGap = text[i] == ' ' && text[i - 1] >= '0' && text[i - 1] <= '9';
            made += isGap ? "\" " + std::string(names[static_cast<std::size_t>(blanks++ % 2)]) + "=\""
                          : std::string(1, text[i]);
        }
        return made;
    };
    auto coloured = named(triangles, {"v2", "v3"});
    if (painted) {
        coloured.replace(coloured.find("/>"), 2, " pid=\"5\" p1=\"0\"/>\n");
        coloured.replace(coloured.find("/>", coloured.find("\n")), 2,
                         " pid=\"5\" p1=\"0\" p2=\"1\" p3=\"1\"/>");
    }
    auto const model = R"(<?xml version="1.0" encoding="UTF-8"?>
<model unit="inch" xmlns="http://schemas.microsoft.com/3dmanufacturing/core/2015/02"
 xmlns:m="http://schemas.microsoft.com/3dmanufacturing/material/2015/02"><resources>
<m:colorgroup id="5"><m:color color="#00FF00"/><m:color color="#0000FF80"/></m:colorgroup>
<basematerials id="1"><base name="Red" displaycolor="#FF0000FF"/></basematerials>
<object id="2" type="model" name="block" pid="1" pindex="0"><mesh><vertices>)" +
                       named(vertices, {"y", "z"}) + "</vertices><triangles>" + coloured +
                       R"(</triangles></mesh></object>
<object id="3" type="model" name="pair"><components><component objectid="2"/>
<component objectid="2" transform="1 0 0 0 1 0 0 0 1 50 0 0"/></components></object>
</resources><build><item objectid="3"/></build></model>)";
    return archive(
        {{"[Content_Types].xml", "<?xml version=\"1.0\"?><Types/>"},
         {"_rels/.rels",
          "<?xml version=\"1.0\"?><Relationships><Relationship Target=\"/3D/3dmodel.model\" Id=\"rel0\" "
          "Type=\"http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel\"/></Relationships>"},
         {"3D/3dmodel.model", model}});
}

struct Sample {
    char const* name;
    std::function<std::string()> bytes;
    std::size_t parts, assemblies, placed; ///< how often the box stands in the model
    double length;                         ///< of the box's side of 30, in the model
    std::wstring part;                     ///< its name
    std::vector<Colour> colours;
};

std::vector<Sample> const Samples = {
    {"colours.ply", plyText, 1, 0, 1, 30, L"colours", {{0, 0, 255}, {85, 0, 170}, {170, 0, 85}, {255, 0, 0}}},
    {"binary.ply", plyBinary, 1, 0, 1, 30, L"binary", {}},
    {"box.off", offText, 1, 0, 1, 30, L"box", {}},
    {"group.dae", colladaText, 1, 1, 2, 300, L"g", {{51, 102, 153}}},
    {"pair.3mf", [] { return packedText(false); }, 1, 1, 2, 762, L"block", {{255, 0, 0}}},
    {"painted.3mf",
     [] { return packedText(true); },
     1,
     1,
     2,
     762,
     L"block",
     {{0, 85, 170}, {0, 255, 0}, {255, 0, 0}}},
};

struct Found {
    double length = 0.0;
    std::set<std::array<int, 3>> colours;
    std::size_t placed = 0;
};

// Walks the places of the model, down to the points that stand at them.
void visit(std::vector<std::shared_ptr<ZELInstance>> const& instances, Matrix const& outer, Found& found)
{
    for (auto const& instance : instances) {
        Matrix m{};
        auto const& own = instance->GetMatrix();
        for (std::size_t r = 0; r < 4; ++r)
            for (std::size_t c = 0; c < 4; ++c)
                for (std::size_t k = 0; k < 4; ++k) m[4 * r + c] += own[4 * r + k] * outer[4 * k + c];
        auto const& reference = *instance->GetReference();
        visit(reference.GetInstances(), m, found);
        if (!reference.IsPart()) continue;
        ++found.placed;
        std::wstring pid;
        std::vector<std::shared_ptr<NarMetaVisu::MeshRep>> meshes;
        reference.GetPID(pid);
        reference.GetSG()->GetMeshes(pid, meshes);
        double low = 1e9, high = -1e9;
        for (auto const& mesh : meshes) {
            for (auto const& face : mesh->GetFaces()) {
                auto const& points = face->GetPoints();
                for (std::size_t i = 0; i < points.size(); i += 3) {
                    auto const z = points[i] * m[2] + points[i + 1] * m[6] + points[i + 2] * m[10] + m[14];
                    low = std::min<double>(low, z), high = std::max<double>(high, z);
                }
                if (auto const& look = face->GetAttributes(); look && look->GetColour())
                    found.colours.insert(
                        {look->GetColour()->red, look->GetColour()->green, look->GetColour()->blue});
            }
        }
        found.length = high - low;
    }
}

class MeshLibraryTest : public testing::TestWithParam<Sample>
{
};

bool readFile(std::filesystem::path const& file, ZelIO& io, ZELProductStructure& model)
{
    return io.Read(file.wstring().c_str(), &model, nullptr);
}
} // namespace

TEST_P(MeshLibraryTest, KeepsStructureUnitsNamesAndColours)
{
    auto const& sample = GetParam();
    TemporaryFolder const folder;
    ZelIO io;
    ZELProductStructure model;
    ASSERT_TRUE(readFile(folder.write(sample.name, sample.bytes()), io, model));
    EXPECT_TRUE(io.IsGraphicalMode());
    std::size_t parts = 0;
    for (auto const& reference : model.GetReferences()) {
        parts += reference->IsPart();
        if (reference->IsPart()) {
            EXPECT_EQ(reference->GetReferenceName(), sample.part);
        }
    }
    EXPECT_EQ(parts, sample.parts);
    EXPECT_EQ(model.GetReferences().size() - parts, sample.assemblies);
    Found found;
    visit(model.GetRootInstances(), IdentityMatrix, found);
    EXPECT_EQ(found.placed, sample.placed);
    EXPECT_NEAR(found.length, sample.length, 1e-3);
    std::set<std::array<int, 3>> colours;
    for (auto const& colour : sample.colours) colours.insert({colour.red, colour.green, colour.blue});
    EXPECT_EQ(found.colours, colours);
}

TEST_P(MeshLibraryTest, IsKnownByItsContents)
{
    TemporaryFolder const folder;
    ZelIO io;
    ZELProductStructure model;
    EXPECT_TRUE(readFile(folder.write("without_extension", GetParam().bytes()), io, model));
}

// A cut or changed file gives a cause, or a model: the library may break down or lose itself, its process
// does not take ours along.
TEST_P(MeshLibraryTest, SurvivesCutsAndChanges)
{
    constexpr int Cuts = 20, Turns = 60;
    constexpr double MostSeconds = 2.0;
    TemporaryFolder const folder;
    auto const good = GetParam().bytes();
    std::minstd_rand random(7);
    for (unsigned i = 0; i < Turns; ++i) {
        auto bytes = good;
        if (i < Cuts)
            bytes.resize(good.size() * i / Cuts);
        else
            bytes[random() % bytes.size()] = static_cast<char>(random());
        ZelIO io;
        io.SetReadIsolated(true, MostSeconds);
        ZELProductStructure model;
        bool const isRead = readFile(folder.write(GetParam().name, bytes), io, model);
        EXPECT_NE(isRead, !io.GetErrorMessage().empty()) << i;
        EXPECT_EQ(io.GetErrorMessage().find(L'\n'), std::wstring::npos);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, MeshLibraryTest, testing::ValuesIn(Samples), [](auto const& test) {
    std::string name = test.param.name;
    std::ranges::replace(name, '.', '_');
    return name;
});

TEST(MeshLibraryCloud, PointsWithoutFacesAreAPointSet)
{
    TemporaryFolder const folder;
    ZelIO io;
    ZELProductStructure model;
    ASSERT_TRUE(readFile(folder.write("cloud.ply", plyCloud()), io, model));
    std::wstring pid;
    std::vector<std::shared_ptr<NarMetaVisu::PointSetRep>> sets;
    auto const& part = *model.GetReferences().front();
    ASSERT_TRUE(part.GetPID(pid) && part.GetSG()->GetPointSets(pid, sets));
    EXPECT_EQ(sets.front()->GetPoints().front()->GetPoints().size(), 24u);
}

TEST(MeshLibraryCloud, AHeaderThatPromisesTooMuchIsRefused)
{
    TemporaryFolder const folder;
    for (char const* const count : {"4000000000", "-1", "99999999999999999999"}) {
        ZelIO io;
        ZELProductStructure model;
        auto text = plyText();
        text.replace(text.find("vertex 8"), 8, "vertex " + std::string(count));
        EXPECT_FALSE(readFile(folder.write("much.ply", text), io, model)) << count;
    }
}
