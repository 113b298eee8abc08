#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <regex>
#include <set>

using namespace ReadSupport;
using namespace NarMetaPmi;

namespace
{
/// Statements of a STEP file with one of some keywords, told by nothing but their characters.
std::size_t countStatements(std::string const& text, std::string const& keywords)
{
    std::regex const pattern("[=)(\\s](?:" + keywords + ")\\s*\\(");
    std::size_t count = 0;
    for (std::size_t first = text.find("DATA;"), end = 0; end != text.npos; first = end + 1) {
        end = text.find(';', first);
        auto const statement = text.substr(first, end - first);
        if (statement.find("TOLERANCE") == statement.npos && statement.find("DIM") == statement.npos &&
            statement.find("ANGULAR") == statement.npos && statement.find("DATUM") == statement.npos &&
            statement.find("CAMERA") == statement.npos)
            continue;
        if (std::regex_search(statement, pattern)) ++count;
    }
    return count;
}

constexpr char const* Dimensions = "DIMENSIONAL_SIZE|ANGULAR_SIZE|DIMENSIONAL_SIZE_WITH_DATUM_FEATURE|"
                                   "DIMENSIONAL_LOCATION|ANGULAR_LOCATION|DIRECTED_DIMENSIONAL_LOCATION";
constexpr char const* Tolerances =
    "GEOMETRIC_TOLERANCE|[A-Z_]*(?:NESS|ICITY|PROFILE|LARITY|PARALLELISM|POSITION|RUNOUT)_TOLERANCE";
constexpr char const* Targets = "DATUM_TARGET|PLACED_DATUM_TARGET_FEATURE";
constexpr char const* Cameras = "CAMERA_MODEL_D3[A-Z_]*";

/// All annotations of a part, each once, and what draws them.
struct Annotations {
    std::vector<std::shared_ptr<PMIDimension>> dimensions;
    std::vector<std::shared_ptr<PMIGDT>> tolerances;
    std::vector<std::shared_ptr<PMIDatum>> datums;
    std::vector<std::shared_ptr<PMIDatumTarget>> targets;
    std::vector<std::shared_ptr<PMINote>> notes;
    std::vector<std::shared_ptr<PMIAnnotation>> all;
    std::vector<std::shared_ptr<PMIAnnotationView>> views;
    std::vector<std::shared_ptr<PMICapture>> captures;
    std::vector<std::shared_ptr<NarMetaVisu::PmiRep>> pictures;

    explicit Annotations(ZELReference const& part)
    {
        std::wstring pid;
        if (part.GetPID(pid) && part.GetSG()) part.GetSG()->GetPmis(pid, pictures);
        PMIContainer::Sets sets;
        if (part.GetPmi()) part.GetPmi()->GetAnnotationSets(pid, sets);
        for (auto const& set : sets) {
            for (auto const& view : set->GetViews()) {
                views.push_back(view);
                take(view->GetDimensions(), dimensions);
                take(view->GetGDTs(), tolerances);
                take(view->GetDatums(), datums);
                take(view->GetDatumTargets(), targets);
                take(view->GetNotes(), notes);
            }
            for (auto const& capture : set->GetCaptures()) captures.push_back(capture);
        }
    }

private:
    template <class List> void take(List const& from, List& to)
    {
        for (auto const& annotation : from) {
            if (!Seen.insert(annotation->GetHashedID()).second) continue;
            to.push_back(annotation);
            all.push_back(annotation);
        }
    }
    std::set<Id> Seen;
};

/// What a file comes to. Numbers of meanings are those of the file's entities; `again` counts dimensions that
/// are drawn more than once, `drawnOnly` those that are a picture without a meaning.
struct AnnotatedFile {
    char const* name;
    std::size_t dimensions, again, drawnOnly;
    std::size_t tolerances, drawnTolerances;
    std::size_t datums, drawnDatums, targets, notes;
    std::size_t saved, pictures;
    std::ptrdiff_t hidden; ///< pictures of annotations that are switched off
};
AnnotatedFile const Files[] = {
    {"dt4sm_simple_sign.stp", 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 2, 0},
    {"nist_ctc_01_asme1_ap203.stp", 0, 0, 10, 0, 6, 0, 3, 0, 2, 1, 21, 0},
    {"nist_ctc_01_asme1_ap242-e1.stp", 12, 0, 0, 6, 0, 3, 0, 0, 2, 1, 23, 0},
    {"nist_ctc_05_asme1_ap242-e1.stp", 6, 0, 2, 10, 0, 4, 0, 2, 0, 2, 22, 0},
    {"nist_ftc_07_asme1_ap242-e2.stp", 17, 0, 0, 27, 0, 5, 0, 0, 10, 16, 53, 32},
    {"nist_stc_07_asme1_ap242-e3.stp", 45, 4, 0, 22, 0, 5, 0, 0, 6, 4, 42, 0},
};

class AnnotatedFileTest : public testing::TestWithParam<AnnotatedFile>
{
protected:
    void SetUp() override
    {
        auto const file = modelFolder() / "nist" / GetParam().name;
        REQUIRE_MODEL_FILE(file);
        Text = bytesOf(file);
        Read = ReadSupport::read(file);
        ASSERT_EQ(Read->result.outcome, IoOutcome::Done);
        ASSERT_EQ(Read->model.GetReferences().size(), 1u);
        Part = Read->model.GetReferences().front();
        Found.emplace(*Part);
    }

    std::string Text;
    std::unique_ptr<ReadModel> Read;
    std::shared_ptr<ZELReference> Part;
    std::optional<Annotations> Found;
};
} // namespace

TEST_P(AnnotatedFileTest, HasTheAnnotationsOfTheFile)
{
    auto const& expected = GetParam();
    EXPECT_EQ(countStatements(Text, Dimensions), expected.dimensions);
    EXPECT_EQ(countStatements(Text, Tolerances), expected.tolerances);
    EXPECT_EQ(countStatements(Text, "DATUM"), expected.datums);
    EXPECT_EQ(countStatements(Text, Targets), expected.targets);
    EXPECT_EQ(countStatements(Text, Cameras), expected.saved);
    EXPECT_EQ(Found->dimensions.size(), expected.dimensions + expected.again + expected.drawnOnly);
    EXPECT_EQ(Found->tolerances.size(), expected.tolerances + expected.drawnTolerances);
    EXPECT_EQ(Found->datums.size(), expected.datums + expected.drawnDatums);
    EXPECT_EQ(Found->targets.size(), expected.targets);
    EXPECT_EQ(Found->notes.size(), expected.notes);
    EXPECT_EQ(Found->captures.size(), expected.saved);
    EXPECT_EQ(Found->pictures.size(), expected.pictures);
    auto const hidden = Part->GetPmi()->GetHiddenAnnotations();
    auto const isHidden = [&](auto const& picture) {
        return std::ranges::find(hidden, picture->GetHashedID()) != hidden.end();
    };
    EXPECT_EQ(std::ranges::count_if(Found->pictures, isHidden), expected.hidden);
}

TEST_P(AnnotatedFileTest, SaysWhatItsMeaningsAre)
{
    std::size_t withValue = 0;
    for (auto const& dimension : Found->dimensions) {
        PMIDimensionType type{};
        PMIDimensionSubType measured{};
        dimension->GetType(type, measured);
        if (dimension->GetValue()) {
            ++withValue;
            EXPECT_GT(dimension->GetValue()->nominal, 0.0);
            EXPECT_FALSE(dimension->GetText().empty());
            EXPECT_NE(measured, PMIDimensionSubType::Unknown) << dimension->GetHashedID();
        }
    }
    // Some dimensions have no size in the file, only a feature.
    EXPECT_EQ(withValue,
              countStatements(Text, "DIMENSIONAL_CHARACTERISTIC_REPRESENTATION") + GetParam().again);
    std::size_t withZone = 0;
    for (auto const& tolerance : Found->tolerances) {
        PMIToleranceType type{};
        double zone = 0;
        tolerance->GetToleranceInfo(type, zone);
        if (zone > 0) ++withZone;
    }
    EXPECT_EQ(withZone, GetParam().tolerances);
    for (auto const& annotation : Found->all) EXPECT_FALSE(annotation->GetName().empty());
}

TEST_P(AnnotatedFileTest, LinksToFacesOfThePart)
{
    std::set<Id> shapes;
    for (auto const& body : Part->GetBodies()) {
        shapes.insert(body.id);
        for (auto const& face : body.faces) shapes.insert(face.id);
        for (auto const& edge : body.edges) shapes.insert(edge.id);
        for (auto const& vertex : body.vertices) shapes.insert(vertex.id);
    }
    std::size_t links = 0, found = 0;
    for (auto const& annotation : Found->all) {
        for (auto const& [path, name] : annotation->GetLinkedEntities()) {
            ++links;
            auto const named = Part->GetEntityNames().find(name);
            if (named == Part->GetEntityNames().end()) continue;
            ++found;
            EXPECT_TRUE(shapes.contains(named->second));
        }
    }
    // The smallest file does not say which annotation its features belong to.
    EXPECT_EQ(links > 0, GetParam().saved > 0);
    EXPECT_GE(10 * found, 9 * links); // a curve or point that nothing else uses may have no shape
}

TEST_P(AnnotatedFileTest, DrawsWhereThePartIs)
{
    std::array<double, 3> low, high;
    low.fill(1e30), high.fill(-1e30);
    for (auto const& body : Part->GetBodies()) {
        for (std::size_t i = 0; i < body.points.size(); ++i) {
            low[i % 3] = std::min(low[i % 3], double(body.points[i]));
            high[i % 3] = std::max(high[i % 3], double(body.points[i]));
        }
    }
    auto const size = std::hypot(high[0] - low[0], high[1] - low[1], high[2] - low[2]);
    std::set<Id> ids;
    for (auto const& annotation : Found->all) ids.insert(annotation->GetHashedID());
    for (auto const& picture : Found->pictures) {
        EXPECT_TRUE(ids.contains(picture->GetHashedID())) << "a picture of no annotation";
        auto const expectNear = [&](std::vector<float> const& points) {
            for (std::size_t i = 0; i < points.size(); ++i) {
                ASSERT_GT(points[i], low[i % 3] - 3 * size);
                ASSERT_LT(points[i], high[i % 3] + 3 * size);
            }
        };
        for (auto const& edge : picture->GetEdges()) expectNear(edge->GetPoints());
        if (picture->GetMesh())
            for (auto const& face : picture->GetMesh()->GetFaces()) expectNear(face->GetPoints());
        EXPECT_TRUE(picture->HasData());
    }
}

TEST_P(AnnotatedFileTest, LooksAtThePartFromItsViews)
{
    for (auto const& capture : Found->captures) {
        ASSERT_TRUE(capture->GetCamera());
        auto const& camera = *capture->GetCamera();
        auto const length = [](auto const& v) { return std::hypot(v[0], v[1], v[2]); };
        EXPECT_NEAR(length(camera.direction), 1.0, 1e-6);
        EXPECT_NEAR(length(camera.up), 1.0, 1e-6);
        EXPECT_GT(camera.width, 0.0);
        // The centre of the part lies before the eye.
        std::array<double, 3> middle{};
        double count = 0;
        for (auto const& body : Part->GetBodies())
            for (std::size_t i = 0; i < body.points.size(); ++i)
                middle[i % 3] += body.points[i], count += 1.0 / 3;
        double ahead = 0;
        for (std::size_t i = 0; i < 3; ++i)
            ahead += (middle[i] / count - camera.position[i]) * camera.direction[i];
        EXPECT_GT(ahead, 0.0) << "the view looks away";
    }
}

INSTANTIATE_TEST_SUITE_P(Files, AnnotatedFileTest, testing::ValuesIn(Files), [](auto const& test) {
    auto name = std::filesystem::path(test.param.name).stem().string();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
});

TEST(Annotations, HiddenOnesTellWhichViewIsActive)
{
    auto const file = modelFolder() / "nist/nist_ftc_07_asme1_ap242-e2.stp";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    std::shared_ptr<PMIAnnotationView> view;
    ASSERT_TRUE(read->model.GetReferences().front()->GetPmi()->GetActiveView(view));
    EXPECT_EQ(view->GetName(), L"MBD_A");
    Annotations const found(*read->model.GetReferences().front());
    for (auto const& annotation : found.all) {
        auto const& members = found.captures.front()->GetAnnotationIds();
        bool const isShown = std::ranges::find(members, annotation->GetHashedID()) != members.end();
        bool const hasPicture = std::ranges::any_of(found.pictures, [&](auto const& picture) {
            return picture->GetHashedID() == annotation->GetHashedID();
        });
        if (!hasPicture) continue;
        EXPECT_NE(annotation->IsHidden(), isShown);
    }
}

TEST(Annotations, HaveTheValuesOfTheFile)
{
    auto const file = modelFolder() / "nist/nist_ctc_01_asme1_ap242-e1.stp";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    Annotations const found(*read->model.GetReferences().front());
    auto const named = [](auto const& list, std::wstring const& name) {
        return *std::ranges::find_if(list, [&](auto const& one) { return one->GetName() == name; });
    };
    auto const& size = named(found.dimensions, L"Linear Size.1");
    EXPECT_EQ(size->GetValue(), (PMIDimensionValue{35.0, 0.0, -0.2}));
    EXPECT_EQ(size->GetText(), L"\u230035 +0 -0.2");
    EXPECT_EQ(named(found.tolerances, L"Position.1")->GetText(), L"0.75 | A | B | C");
    EXPECT_EQ(named(found.datums, L"Simple Datum.1")->GetText(), L"A");
}
