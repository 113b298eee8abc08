#include "full_model.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>

using namespace NarMetaInfra;

namespace
{

std::string Contents(std::filesystem::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::filesystem::path const Sample = std::filesystem::path(ZEL_SOURCE_DIR) / "samples" / "machine.zel_xml";

TEST(SampleTest, TheGeneratorMakesTheSameBytes)
{
    TemporaryFolder const folder;
    auto const command = "\"" ZEL_BINARY_DIR "/bin/zel_make_samples\" \"" + (folder / "").string() + "\"";
    ASSERT_EQ(std::system(command.c_str()), 0);
    auto const made = Contents(folder / "machine.zel_xml");
    EXPECT_GT(made.size(), 100'000u);
    EXPECT_TRUE(made == Contents(Sample)) << "run zel_make_samples samples";
    EXPECT_LT(made.size(), 1'000'000u);
}

class SampleModel : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(io_.Read(Sample.wstring().c_str(), &model_, nullptr)); }

    ZelIO io_;
    ZELProductStructure model_;
};

TEST_F(SampleModel, HoldsWhatItPromises)
{
    EXPECT_THAT(io_.GetWarningMessages(), testing::IsEmpty());
    EXPECT_EQ(model_.GetRootInstancesCount(), 3u);
    EXPECT_EQ(model_.GetUniqueReferencesCount(), 22u);
    EXPECT_EQ(model_.GetSubAssemblyReferences().size(), 5u);
    int mirrored = 0, scaled = 0, hidden = 0, suppressed = 0, missing = 0, coloured = 0;
    std::map<ZELReference const*, std::size_t> uses;
    for (auto const& reference : model_.GetReferences())
        for (auto const& instance : reference->GetInstances()) {
            auto const& m = instance->GetMatrix();
            double const determinant = double(m[0]) * (double(m[5]) * m[10] - double(m[6]) * m[9]) -
                                       double(m[1]) * (double(m[4]) * m[10] - double(m[6]) * m[8]) +
                                       double(m[2]) * (double(m[4]) * m[9] - double(m[5]) * m[8]);
            bool flag = false;
            mirrored += determinant < 0;
            scaled += std::abs(std::abs(determinant) - 1) > 0.1;
            hidden += instance->GetHidden(flag) && flag;
            suppressed += instance->GetSuppressed(flag) && flag;
            missing += instance->GetReference()->IsEmpty();
            coloured += instance->GetColours().GetColour().has_value();
        }
    EXPECT_EQ((std::array{mirrored, scaled, hidden, suppressed, missing, coloured}),
              (std::array{1, 1, 1, 1, 1, 1}));
    std::size_t most = 0;
    for (auto const& reference : model_.GetReferences())
        most = std::max(most, model_.GetOccurrencesCount(*reference));
    EXPECT_EQ(most, 10u) << "bolts: six in the flange, four in the feet";
}

/// Position as the modeller rounds it.
using Place = std::array<long, 3>;

TEST_F(SampleModel, ConsistsOfClosedSolidsWithNormalsOutwards)
{
    for (auto const& reference : model_.GetReferences())
        for (auto const& body : reference->GetBodies()) {
            std::map<std::pair<Place, Place>, int> sides;
            double volume = 0;
            int turned = 0, notUnit = 0;
            for (auto const& face : body.faces) {
                auto const points = body.PointsOf(face), normals = body.NormalsOf(face);
                auto const triangles = body.TrianglesOf(face);
                for (std::size_t t = 0; t < triangles.size(); t += 3) {
                    double p[3][3], n[3] = {};
                    Place places[3];
                    for (int c = 0; c < 3; ++c)
                        for (int k = 0; k < 3; ++k) {
                            auto const at =
                                3 * triangles[t + static_cast<std::size_t>(c)] + static_cast<std::size_t>(k);
                            p[c][k] = points[at];
                            n[k] += normals[at];
                            places[c][static_cast<std::size_t>(k)] = std::lround(1000.0 * points[at]);
                        }
                    double const u[3] = {p[1][0] - p[0][0], p[1][1] - p[0][1], p[1][2] - p[0][2]};
                    double const v[3] = {p[2][0] - p[0][0], p[2][1] - p[0][1], p[2][2] - p[0][2]};
                    double const w[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                                         u[0] * v[1] - u[1] * v[0]};
                    turned += w[0] * n[0] + w[1] * n[1] + w[2] * n[2] < 0;
                    volume += (p[0][0] * w[0] + p[0][1] * w[1] + p[0][2] * w[2]) / 6;
                    for (int c = 0; c < 3; ++c) {
                        ++sides[{places[c], places[(c + 1) % 3]}];
                        --sides[{places[(c + 1) % 3], places[c]}];
                    }
                }
                for (std::size_t i = 0; i < normals.size(); i += 3)
                    notUnit += std::abs(std::hypot(normals[i], normals[i + 1], normals[i + 2]) - 1) > 1e-3;
            }
            auto const open =
                std::count_if(sides.begin(), sides.end(), [](auto const& s) { return s.second != 0; });
            std::string const name(body.name.begin(), body.name.end());
            EXPECT_EQ(open, 0) << name;
            EXPECT_EQ(turned, 0) << name;
            EXPECT_EQ(notUnit, 0) << name;
            EXPECT_GT(volume, 100) << name;
        }
}

TEST_F(SampleModel, GearsAreOfTheRightSize)
{
    auto const radii = [this](wchar_t const* wanted) {
        double least = 1e9, most = 0;
        for (auto const& reference : model_.GetReferences()) {
            std::wstring pid;
            if (!reference->GetPID(pid) || pid != wanted) continue;
            auto const& points = reference->GetBodies()[0].points;
            for (std::size_t i = 0; i < points.size(); i += 3) {
                least = std::min<double>(least, std::hypot(points[i], points[i + 1]));
                most = std::max<double>(most, std::hypot(points[i], points[i + 1]));
            }
        }
        return std::pair(least, most);
    };
    // Module 2, 18 teeth: tip circle 40 mm; the ring's 54 teeth reach inwards to 104 mm.
    EXPECT_NEAR(radii(L"planet-gear").second, 20, 0.01);
    EXPECT_NEAR(radii(L"sun-gear").second, 20, 0.01);
    EXPECT_NEAR(radii(L"ring-gear").first, 52, 0.01);
}

} // namespace
