#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace ReadSupport;

namespace
{
struct Totals {
    double volume = 0;
    std::size_t triangles = 0, faces = 0, coloured = 0, occurrences = 0;
    std::array<double, 3> low{1e30, 1e30, 1e30}, high{-1e30, -1e30, -1e30};
};

/// Of everything as it is placed in the whole product.
class Summary
{
public:
    explicit Summary(ZELProductStructure const& model)
    {
        for (auto const& root : model.GetRootInstances()) visit(*root, IdentityMatrix);
    }
    Totals totals;

private:
    using Point = std::array<double, 3>;

    static Matrix product(Matrix const& a, Matrix const& b)
    {
        Matrix made{};
        for (std::size_t i = 0; i < 16; ++i)
            for (std::size_t k = 0; k < 4; ++k) made[i] += a[i / 4 * 4 + k] * b[4 * k + i % 4];
        return made;
    }

    void visit(ZELInstance const& instance, Matrix const& outer)
    {
        auto const matrix = product(instance.GetMatrix(), outer);
        auto const& reference = *instance.GetReference();
        for (auto const& child : reference.GetInstances()) visit(*child, matrix);
        if (!reference.IsPart()) return;
        ++totals.occurrences;
        for (auto const& body : reference.GetBodies()) {
            for (auto const& face : body.faces) {
                if (face.colour || body.colour) ++totals.coloured;
                auto const triangles = body.TrianglesOf(face);
                add(body.PointsOf(face), {triangles.begin(), triangles.end()}, matrix);
            }
        }
        std::wstring pid;
        std::vector<std::shared_ptr<NarMetaVisu::MeshRep>> meshes;
        if (reference.GetSG() && reference.GetPID(pid)) reference.GetSG()->GetMeshes(pid, meshes);
        for (auto const& mesh : meshes) {
            for (auto const& face : mesh->GetFaces()) {
                if (face->GetAttributes() && face->GetAttributes()->GetColour()) ++totals.coloured;
                std::vector<std::uint32_t> corners;
                for (int const index : face->GetPolygons().front().GetIndices())
                    corners.push_back(static_cast<std::uint32_t>(index / 3));
                add(face->GetPoints(), corners, matrix);
            }
        }
    }

    void add(std::span<float const> points, std::vector<std::uint32_t> const& corners, Matrix const& m)
    {
        ++totals.faces;
        totals.triangles += corners.size() / 3;
        std::vector<Point> at;
        for (auto const corner : corners) {
            auto const* const p = &points[3 * corner];
            Point q;
            for (std::size_t k = 0; k < 3; ++k)
                q[k] = double(p[0]) * m[k] + double(p[1]) * m[4 + k] + double(p[2]) * m[8 + k] + m[12 + k];
            for (std::size_t k = 0; k < 3; ++k) {
                totals.low[k] = std::min(totals.low[k], q[k]);
                totals.high[k] = std::max(totals.high[k], q[k]);
            }
            at.push_back(q);
        }
        auto const side = determinantOf(m) < 0 ? -1.0 : 1.0; // a mirror turns triangles inside out
        for (std::size_t i = 0; i + 2 < at.size(); i += 3) {
            auto const &a = at[i], &b = at[i + 1], &c = at[i + 2];
            totals.volume += side *
                             (a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                              a[2] * (b[0] * c[1] - b[1] * c[0])) /
                             6;
        }
    }
};

struct Format {
    char const* file;
    bool keepsParts; ///< one part per part, not one heap
    bool keepsColours;
    double tolerance; ///< share of the volume that a new tessellation may change
};
Format const Formats[] = {{"out.step", true, true, 0.02}, {"out.brep", false, false, 0.02},
                          {"out.glb", true, true, 1e-4},  {"out.gltf", true, true, 1e-4},
                          {"out.obj", false, true, 1e-4}, {"out.stl", false, false, 1e-4}};

struct Source {
    char const* path;
    bool isExact;
};
Source const Sources[] = {{"parts/red_cube_blue_cylinder.step", true},
                          {"asm/ublox_JODY-W4.step", true},
                          {"gltf/car.glb", false},
                          {"mesh/low_cost_robot_gripper_static_part.stl", false}};

class WritingTest : public testing::TestWithParam<Source>
{
};

void expectSame(Totals const& before, Totals const& after, Format const& format)
{
    EXPECT_NEAR(after.volume, before.volume, std::abs(before.volume) * format.tolerance + 1e-9);
    for (std::size_t k = 0; k < 3; ++k) {
        auto const slack = (before.high[k] - before.low[k]) * (format.tolerance / 2 + 1e-4);
        EXPECT_NEAR(after.low[k], before.low[k], slack);
        EXPECT_NEAR(after.high[k], before.high[k], slack);
    }
    if (format.tolerance < 1e-3) {
        // Coordinates as text let the smallest triangles of one format shrink to nothing.
        EXPECT_NEAR(double(after.triangles), double(before.triangles), double(before.triangles) / 100);
    }
    if (format.keepsParts) {
        EXPECT_EQ(after.occurrences, before.occurrences);
    }
    if (format.keepsColours) {
        EXPECT_EQ(after.coloured > 0, before.coloured > 0);
    }
}
} // namespace

TEST_P(WritingTest, WhatIsWrittenReadsBackTheSame)
{
    auto const file = modelFolder() / GetParam().path;
    REQUIRE_MODEL_FILE(file);
    ZelIO io;
    io.SetKeepExactShapes(true);
    ZELProductStructure model;
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &model, nullptr));
    Summary const before(model);
    TemporaryFolder const folder;
    for (auto const& format : Formats) {
        SCOPED_TRACE(format.file);
        auto const target = folder.path() / format.file;
        bool const isExactFormat = format.tolerance > 1e-3;
        ASSERT_EQ(io.Write(target.wstring().c_str(), &model, nullptr), GetParam().isExact || !isExactFormat)
            << std::filesystem::path(io.GetErrorMessage()).string();
        if (isExactFormat && !GetParam().isExact) {
            EXPECT_NE(io.GetErrorMessage().find(L"no exact shapes"), std::wstring::npos);
            EXPECT_FALSE(std::filesystem::exists(target));
            continue;
        }
        ZELProductStructure again;
        ASSERT_TRUE(io.Read(target.wstring().c_str(), &again, nullptr))
            << std::filesystem::path(io.GetErrorMessage()).string();
        expectSame(before.totals, Summary(again).totals, format);
    }
    for (auto const& entry : std::filesystem::directory_iterator(folder.path()))
        EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << "left behind: " << entry.path();
}

INSTANTIATE_TEST_SUITE_P(Files, WritingTest, testing::ValuesIn(Sources), [](auto const& test) {
    auto name = std::filesystem::path(test.param.path).stem().string();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
});

TEST(Writing, OnePartOfAnAssemblyStandsAlone)
{
    auto const file = modelFolder() / "parts/sofle_SOLENOID.STEP";
    REQUIRE_MODEL_FILE(file);
    ZelIO io;
    io.SetKeepExactShapes(true);
    ZELProductStructure model, alone;
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &model, nullptr));
    auto const& part = model.GetReferences().front();
    TemporaryFolder const folder;
    auto const target = folder.path() / "part.step";
    ASSERT_TRUE(io.WriteReference(target.wstring().c_str(), &model, part.get(), nullptr));
    ASSERT_TRUE(io.Read(target.wstring().c_str(), &alone, nullptr));
    EXPECT_EQ(alone.GetReferences().size(), 1u);
    EXPECT_EQ(alone.GetReferences().front()->GetReferenceName(), part->GetReferenceName());
    EXPECT_EQ(alone.GetCounts().faces, part->GetCounts().faces);
}

TEST(Writing, AFailureLeavesTheOldFile)
{
    TemporaryFolder const folder;
    ZELProductStructure const empty;
    auto const target = folder.write("old.stl", "old");
    ZelIO io;
    EXPECT_FALSE(io.Write(target.wstring().c_str(), &empty, nullptr));
    EXPECT_EQ(io.GetOutcome(), IoOutcome::CannotWrite);
    EXPECT_EQ(bytesOf(target), "old");
    EXPECT_FALSE(io.Write((folder.path() / "no/such/folder.obj").wstring().c_str(), &empty, nullptr));
    EXPECT_FALSE(io.Write((folder.path() / "model.xyz").wstring().c_str(), &empty, nullptr));
    EXPECT_NE(io.GetErrorMessage().find(L"not written in this format"), std::wstring::npos);
}
