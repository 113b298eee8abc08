// Annotations in other files, and annotations that reach their geometry through an assembly.
#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

using namespace ReadSupport;
using namespace NarMetaPmi;

namespace
{
std::filesystem::path data(char const* name)
{
    return std::filesystem::path(ZEL_SOURCE_DIR "/tests/narmeta_io/data") / name;
}

std::shared_ptr<ZELReference> named(ZELProductStructure const& model, std::wstring const& name)
{
    auto const& all = model.GetReferences();
    auto const found =
        std::ranges::find_if(all, [&](auto const& one) { return one->GetReferenceName() == name; });
    return found == all.end() ? nullptr : *found;
}

std::vector<std::shared_ptr<PMIAnnotationSet>> setsOf(PMIContainer const* container)
{
    std::vector<std::shared_ptr<PMIAnnotationSet>> sets;
    if (container)
        for (auto const& [pid, own] : container->GetOwners()) sets.insert(sets.end(), own.begin(), own.end());
    return sets;
}

std::vector<std::shared_ptr<PMIAnnotation>> annotationsOf(PMIContainer const* container)
{
    std::vector<std::shared_ptr<PMIAnnotation>> all;
    auto const add = [&](auto const& list) { all.insert(all.end(), list.begin(), list.end()); };
    for (auto const& set : setsOf(container)) {
        for (auto const& view : set->GetViews()) {
            auto const& members = view->Content();
            add(members.notes), add(members.datums), add(members.datumTargets);
            add(members.tolerances), add(members.dimensions), add(members.roughnesses);
        }
    }
    return all;
}

std::shared_ptr<PMIAnnotation> annotation(PMIContainer const* container, std::wstring const& name)
{
    auto const all = annotationsOf(container);
    auto const found = std::ranges::find_if(all, [&](auto const& one) { return one->GetName() == name; });
    return found == all.end() ? nullptr : *found;
}

using Point = std::array<double, 3>;

/// Middle of a face, or of a body, after all its instances.
Point middleOf(ZELReference const& part, Id entity,
               std::vector<std::shared_ptr<ZELInstance>> const& instances)
{
    Point middle{}, low{1e9, 1e9, 1e9}, high{-1e9, -1e9, -1e9};
    for (auto const& body : part.GetBodies()) {
        for (auto const& face : body.faces) {
            if (face.id != entity && body.id != entity) continue;
            auto const points = body.PointsOf(face);
            for (std::size_t i = 0; i < points.size(); ++i) {
                low[i % 3] = std::min(low[i % 3], double(points[i]));
                high[i % 3] = std::max(high[i % 3], double(points[i]));
            }
        }
    }
    for (std::size_t i = 0; i < 3; ++i) middle[i] = (low[i] + high[i]) / 2;
    for (auto instance = instances.rbegin(); instance != instances.rend(); ++instance) {
        auto const& m = (*instance)->GetMatrix();
        Point moved{};
        for (std::size_t i = 0; i < 3; ++i)
            moved[i] = m[12 + i] + m[i] * middle[0] + m[4 + i] * middle[1] + m[8 + i] * middle[2];
        middle = moved;
    }
    return middle;
}

using Middles = std::set<std::array<long, 3>>;

/// Middles of the faces that an annotation of the model, or of `start`, is linked to.
Middles linkedMiddles(ZELProductStructure const& model, std::shared_ptr<ZELReference> const& start,
                      PMIAnnotation const& annotation)
{
    Middles middles;
    for (auto const& link : annotation.GetLinkedEntities()) {
        std::vector<std::shared_ptr<ZELInstance>> instances;
        auto holder = start;
        if (!link.first.empty() && !(start ? model.GetReference(start, link, instances, holder)
                                           : model.GetReference(link, instances, holder))) {
            ADD_FAILURE() << "a link leads nowhere";
            continue;
        }
        auto const named = holder->GetEntityNames().find(link.second);
        if (named == holder->GetEntityNames().end()) {
            ADD_FAILURE() << "a link to nothing that has a name";
            continue;
        }
        auto const middle = middleOf(*holder, named->second, instances);
        middles.insert(
            {std::lround(10 * middle[0]), std::lround(10 * middle[1]), std::lround(10 * middle[2])});
    }
    return middles;
}

std::multiset<std::vector<float>> linesOf(SGContainer const* scene, std::wstring const& pid)
{
    std::vector<std::shared_ptr<NarMetaVisu::PmiRep>> pictures;
    std::multiset<std::vector<float>> lines;
    if (scene) scene->GetPmis(pid, pictures);
    for (auto const& picture : pictures)
        for (auto const& edge : picture->GetEdges()) lines.insert(edge->GetPoints());
    return lines;
}

void replaceAll(std::string& text, std::string const& from, std::string const& to)
{
    for (auto at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}
} // namespace

TEST(AssemblyAnnotations, OfFeaturesOfUsesBelongToTheAssembly)
{
    auto const read = ReadSupport::read(data("rig.stp"));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    auto const pair = named(read->model, L"pair");
    ASSERT_TRUE(pair && pair->GetPmi());
    auto const all = annotationsOf(pair->GetPmi().get());
    ASSERT_EQ(all.size(), 1u);
    auto const& size = dynamic_cast<PMIDimension const&>(*all.front());
    ASSERT_TRUE(size.GetValue());
    EXPECT_EQ(size.GetValue()->nominal, 35.0);
    // Bottom of the lower plate and top of the upper one, in the pair.
    EXPECT_EQ(linkedMiddles(read->model, pair, size), (Middles{{200, 100, 0}, {200, 100, 350}}));
}

TEST(AssemblyAnnotations, FollowChainsAndPathsToTheRightInstances)
{
    auto const read = ReadSupport::read(data("rig.stp"));
    auto const width = annotation(read->model.GetPMI().get(), L"Width.1");
    ASSERT_TRUE(width);
    EXPECT_EQ(width->GetAnnotationType(), PMIAnnotationType::Dimension);
    // The left end of the left pair's lower plate; the far end of the right pair's upper one, which is
    // turned.
    EXPECT_EQ(linkedMiddles(read->model, nullptr, *width), (Middles{{0, 100, 25}, {900, 400, 325}}));
}

TEST(AssemblyAnnotations, OfAPartAreLinkedWhereverThePartStands)
{
    auto const read = ReadSupport::read(data("rig.stp"));
    auto const note = annotation(read->model.GetPMI().get(), L"Note.1");
    ASSERT_TRUE(note);
    EXPECT_EQ(linkedMiddles(read->model, nullptr, *note),
              (Middles{{200, 100, 50}, {200, 100, 350}, {900, 200, 50}, {900, 200, 350}}));
    auto const plate = named(read->model, L"plate");
    auto const flatness = annotation(plate->GetPmi().get(), L"Flatness.1");
    ASSERT_TRUE(flatness);
    EXPECT_EQ(linkedMiddles(read->model, plate, *flatness), (Middles{{200, 100, 50}}));
}

TEST(AssemblyAnnotations, StandWhereTheirDrawingIsPut)
{
    auto const read = ReadSupport::read(data("rig.stp"));
    std::wstring pid;
    read->model.GetPID(pid);
    // The width in the coordinates of the rig; the note where the rig's drawing puts it, turned by a quarter.
    EXPECT_EQ(linesOf(read->model.GetSG().get(), pid),
              (std::multiset<std::vector<float>>{{0, -10, 0, 100, -10, 0}, {100, 0, 35, 100, 5, 35}}));
    auto const plate = named(read->model, L"plate");
    plate->GetPID(pid);
    EXPECT_EQ(linesOf(plate->GetSG().get(), pid),
              (std::multiset<std::vector<float>>{{30, 10, 5, 30, 10, 12}}));
}

TEST(AssemblyAnnotations, AViewOfTheAssemblyShowsThoseOfItsParts)
{
    auto const read = ReadSupport::read(data("rig.stp"));
    auto const* const own = read->model.GetPMI().get();
    auto const plate = named(read->model, L"plate");
    ASSERT_EQ(setsOf(own).size(), 1u);
    auto const& set = *setsOf(own).front();
    ASSERT_EQ(set.GetCaptures().size(), 1u);
    auto const& capture = *set.GetCaptures().front();
    EXPECT_EQ(capture.GetName(), L"RIG");
    std::set<Id> const shown(capture.GetAnnotationIds().begin(), capture.GetAnnotationIds().end());
    EXPECT_EQ(shown, (std::set<Id>{annotation(own, L"Width.1")->GetHashedID(),
                                   annotation(own, L"Note.1")->GetHashedID(),
                                   annotation(plate->GetPmi().get(), L"Flatness.1")->GetHashedID()}));
    std::wstring platePid;
    plate->GetPID(platePid);
    EXPECT_EQ(capture.GetVisibleReferences(), std::vector{platePid});
    EXPECT_TRUE(setsOf(plate->GetPmi().get()).front()->GetCaptures().empty());
}

TEST(AssemblyAnnotations, ArriveFromExternalFiles)
{
    auto const read = ReadSupport::read(data("rack.stp"));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    ASSERT_EQ(read->model.GetReferences().size(), 1u);
    auto const plate = named(read->model, L"plate");
    ASSERT_TRUE(plate && plate->GetPmi());
    auto const alone = ReadSupport::read(data("plate.stp"));
    auto const& single = *alone->model.GetReferences().front();

    auto const own = annotationsOf(plate->GetPmi().get());
    auto const expected = annotationsOf(single.GetPmi().get());
    ASSERT_EQ(own.size(), expected.size());
    for (auto const& one : expected) {
        auto const other = annotation(plate->GetPmi().get(), one->GetName());
        ASSERT_TRUE(other);
        EXPECT_EQ(other->GetText(), one->GetText());
        EXPECT_EQ(other->IsHidden(), one->IsHidden());
        EXPECT_EQ(linkedMiddles(read->model, plate, *other),
                  linkedMiddles(alone->model, alone->model.GetReferences().front(), *one));
    }
    auto const sets = setsOf(plate->GetPmi().get());
    ASSERT_EQ(sets.size(), 1u);
    ASSERT_EQ(sets.front()->GetCaptures().size(), 1u);
    EXPECT_EQ(sets.front()->GetCaptures().front()->GetName(), L"ABOVE");
    std::wstring pid, singlePid;
    plate->GetPID(pid);
    single.GetPID(singlePid);
    EXPECT_EQ(linesOf(plate->GetSG().get(), pid), linesOf(single.GetSG().get(), singlePid));
    auto const& properties = plate->GetUserProperties();
    EXPECT_TRUE(std::ranges::any_of(properties, [](auto const& one) { return one.value == L"in house"; }));
    // The master's own size stands beside them.
    auto const whole = annotationsOf(read->model.GetPMI().get());
    ASSERT_EQ(whole.size(), 1u);
    EXPECT_EQ(dynamic_cast<PMIDimension const&>(*whole.front()).GetValue()->nominal, 55.0);
}

TEST(AssemblyAnnotations, ArriveFromFilesOfFiles)
{
    TemporaryFolder const folder;
    folder.write("plate.stp", bytesOf(data("plate.stp")));
    auto text = bytesOf(data("rack.stp"));
    folder.write("rack.stp", text);
    replaceAll(text, "'rack'", "'depot'");
    replaceAll(text, "plate", "rack");
    auto const read = ReadSupport::read(folder.write("depot.stp", text));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    auto const plate = named(read->model, L"plate"), rack = named(read->model, L"rack");
    ASSERT_TRUE(plate && rack && plate->GetPmi() && rack->GetPmi() && read->model.GetPMI());
    EXPECT_EQ(annotationsOf(plate->GetPmi().get()).size(), 7u);
    EXPECT_EQ(annotationsOf(rack->GetPmi().get()).size(), 1u);
    EXPECT_EQ(annotationsOf(read->model.GetPMI().get()).size(), 1u);
    EXPECT_EQ(read->model.GetOccurrencesCount(*plate), 4u);
    EXPECT_EQ(plate->GetStorageName(), L"plate.stp");
    EXPECT_EQ(rack->GetStorageName(), L"rack.stp");
    std::set<std::wstring> names;
    for (auto const& instance : rack->GetInstances()) names.insert(instance->GetInstanceName());
    EXPECT_EQ(names, (std::set<std::wstring>{L"shelf", L"top"}));

    std::filesystem::remove(folder.path() / "plate.stp");
    auto const poor = ReadSupport::read(folder.path() / "depot.stp");
    ASSERT_EQ(poor->result.outcome, IoOutcome::Done);
    auto const missing = named(poor->model, L"plate");
    ASSERT_TRUE(missing);
    EXPECT_TRUE(missing->IsEmpty());
    EXPECT_EQ(missing->GetStorageName(), L"plate.stp");
}

TEST(AssemblyAnnotations, FollowAnAssemblyThatIsCopiedForOneOfItsUses)
{
    TemporaryFolder const folder;
    auto text = bytesOf(data("rig.stp"));
    text.insert(
        text.rfind("ENDSEC;"),
        "#2000=STYLED_ITEM('',(#1200),#64);#2001=CONTEXT_DEPENDENT_OVER_RIDING_STYLED_ITEM('',(#1200),"
        "#64,#2000,(#51,#226));#2002=INVISIBILITY((#2001));");
    auto const read = ReadSupport::read(folder.write("rig.stp", text));
    std::size_t pairs = 0;
    for (auto const& root : read->model.GetRootInstances()) {
        auto const all = annotationsOf(root->GetReference()->GetPmi().get());
        ASSERT_EQ(all.size(), 1u);
        EXPECT_EQ(linkedMiddles(read->model, root->GetReference(), *all.front()),
                  (Middles{{200, 100, 0}, {200, 100, 350}}));
        ++pairs;
    }
    EXPECT_EQ(pairs, 2u);
    auto const width = annotation(read->model.GetPMI().get(), L"Width.1");
    ASSERT_TRUE(width);
    EXPECT_EQ(linkedMiddles(read->model, nullptr, *width), (Middles{{0, 100, 25}, {900, 400, 325}}));
}

TEST(ExternalFiles, ThatTheKernelWouldNotSurviveCountAsUnreadable)
{
    auto nested = bytesOf(data("plate.stp"));
    nested.insert(nested.find("#1="), "#5000=&SCOPE\n#5001=CARTESIAN_POINT('',(0.,0.,0.));\nENDSCOPE "
                                      "CARTESIAN_POINT('',(0.,0.,0.));\n");
    auto const cut = nested.substr(0, nested.size() / 2);
    for (std::string const& text : {nested, cut, std::string(), std::string("not STEP")}) {
        TemporaryFolder const folder;
        folder.write("plate.stp", text);
        auto const read = ReadSupport::read(folder.write("rack.stp", bytesOf(data("rack.stp"))));
        ASSERT_EQ(read->result.outcome, IoOutcome::Done);
        auto const plate = named(read->model, L"plate");
        ASSERT_TRUE(plate);
        EXPECT_TRUE(plate->IsEmpty());
        EXPECT_EQ(plate->GetStorageName(), L"plate.stp");
        ASSERT_FALSE(read->result.warnings.empty());
        EXPECT_NE(read->result.warnings.front().find(L"plate.stp"), std::wstring::npos);
        EXPECT_EQ(annotationsOf(read->model.GetPMI().get()).size(), 1u);
    }
}

namespace
{
/// A size of a feature, put on the rig by statements: the feature has number 3000.
struct WayCase {
    char const* name;
    char const* statements;
    char const* owner; ///< name of a reference; empty for the model
    Middles middles;   ///< tenths of millimetres
};

WayCase const Ways[] = {
    {"ChainOfUsages",
     "#3000=SHAPE_ASPECT('','',#3001,.T.);#3001=PRODUCT_DEFINITION_SHAPE('','',#3002);"
     "#3002=SPECIFIED_HIGHER_USAGE_OCCURRENCE('','','',#5,#58,$,#234,#223);"
     "#3003=GEOMETRIC_ITEM_SPECIFIC_USAGE('','',#3000,#63,#202);",
     "",
     {{900, 200, 50}}},
    {"ChainFromBelow",
     "#3000=SHAPE_ASPECT('','',#4,.T.);#3003=CHAIN_BASED_GEOMETRIC_ITEM_SPECIFIC_USAGE('','',#3000,#10,#202,"
     "(#63,#36,#10),(#226,#51));",
     "",
     {{200, 100, 350}}},
    {"ChainThatPassesOneUseOnly",
     "#3000=SHAPE_ASPECT('','',#4,.T.);#3003=CHAIN_BASED_GEOMETRIC_ITEM_SPECIFIC_USAGE('','',#3000,#36,#202,"
     "(#36,#63),(#220));",
     "",
     {{200, 100, 50}, {900, 200, 50}}},
    {"PlacedRepresentation",
     "#3000=SHAPE_ASPECT('','',#4,.T.);#3003=ITEM_IDENTIFIED_REPRESENTATION_USAGE('','',#3000,#1100,#1112);",
     "",
     {{200, 100, 25}, {200, 100, 325}, {900, 200, 25}, {900, 200, 325}}},
    {"FeatureOfAUse",
     "#3000=SHAPE_ASPECT('','',#53,.T.);#3003=CHAIN_BASED_GEOMETRIC_ITEM_SPECIFIC_USAGE('','',#3000,#36,#202,"
     "(#36,#63),(#220));",
     "",
     {{200, 100, 50}}},
    {"FeatureMadeOfOthers",
     "#3000=COMPOSITE_SHAPE_ASPECT('','',#31,.T.);#3001=SHAPE_ASPECT_RELATIONSHIP('','',#3000,#1000);"
     "#3002=SHAPE_ASPECT_RELATIONSHIP('','',#3000,#1002);",
     "pair",
     {{200, 100, 0}, {200, 100, 350}}},
    {"PathThroughNothing",
     "#3000=COMPONENT_PATH_SHAPE_ASPECT('','',#4,.T.,#3000,#3000);"
     "#3002=MULTI_LEVEL_REFERENCE_DESIGNATOR('','','',#5,#58,$,(#3000,#9999));",
     "",
     {}},
};

class WayTest : public testing::TestWithParam<WayCase>
{
};
} // namespace

TEST_P(WayTest, LeadsToTheInstancesThatAreMeant)
{
    auto text = bytesOf(data("rig.stp"));
    text.insert(text.rfind("ENDSEC;"),
                std::string(GetParam().statements) + "#3010=DIMENSIONAL_SIZE(#3000,'depth');");
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("rig.stp", text));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    std::string const owner = GetParam().owner;
    auto const start = owner.empty() ? nullptr : named(read->model, std::wstring(owner.begin(), owner.end()));
    auto const size = annotation(start ? start->GetPmi().get() : read->model.GetPMI().get(), L"Dimension");
    ASSERT_TRUE(size);
    EXPECT_EQ(linkedMiddles(read->model, start, *size), GetParam().middles);
}

INSTANTIATE_TEST_SUITE_P(Ways, WayTest, testing::ValuesIn(Ways),
                         [](auto const& test) { return test.param.name; });
