// What a STEP file switches off, in the ways in which files do it.
#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace ReadSupport;

namespace
{
/// Statements added to the rig of two pairs of plates, and what is hidden by them.
struct HiddenCase {
    char const* name;
    char const* statements;
    std::set<std::wstring> instances; ///< names of hidden ones with those of their assembly
    std::size_t faces;                ///< of the plate's six
    std::set<std::wstring> annotations;
};

HiddenCase const Cases[] = {
    {"Nothing", "", {}, 0, {}},
    {"Solid", "#2000=STYLED_ITEM('',(#1200),#64);#2001=INVISIBILITY((#2000));", {}, 6, {}},
    {"Shell", "#2000=STYLED_ITEM('',(#1200),#65);#2001=INVISIBILITY((#2000));", {}, 6, {}},
    {"Face", "#2000=STYLED_ITEM('',(#1200),#202);#2001=INVISIBILITY((#2000));", {}, 1, {}},
    {"OverriddenFace",
     "#2000=STYLED_ITEM('',(#1200),#64);#2001=OVER_RIDING_STYLED_ITEM('',(#1200),#202,#2000);"
     "#2002=INVISIBILITY((#2001));",
     {},
     1,
     {}},
    {"Representation", "#2000=INVISIBILITY((#63));", {}, 6, {}},
    {"StyledRepresentation", "#2000=STYLED_ITEM('',(#1200),#63);#2001=INVISIBILITY((#2000));", {}, 6, {}},
    {"LayerOfSolid",
     "#2000=PRESENTATION_LAYER_ASSIGNMENT('off','',(#64));#2001=INVISIBILITY((#2000));",
     {},
     6,
     {}},
    {"LayerOfFaces",
     "#2000=PRESENTATION_LAYER_ASSIGNMENT('off','',(#202,#190));#2001=INVISIBILITY((#2000));",
     {},
     2,
     {}},
    {"LayerOfStyles",
     "#2000=STYLED_ITEM('',(#1200),#202);#2001=PRESENTATION_LAYER_ASSIGNMENT('off','',(#2000));"
     "#2002=INVISIBILITY((#2001));",
     {},
     1,
     {}},
    {"LayerOfRepresentation",
     "#2000=PRESENTATION_LAYER_ASSIGNMENT('off','',(#63));#2001=INVISIBILITY((#2000));",
     {},
     6,
     {}},
    {"Use",
     "#2000=SHAPE_REPRESENTATION('',(#11),#45);#2001=SHAPE_DEFINITION_REPRESENTATION(#228,#2000);"
     "#2002=STYLED_ITEM('',(#1200),#2000);#2003=INVISIBILITY((#2002));",
     {L"pair/upper"},
     0,
     {}},
    {"UseByContext",
     "#2000=STYLED_ITEM('',(#1200),#64);"
     "#2001=CONTEXT_DEPENDENT_OVER_RIDING_STYLED_ITEM('',(#1200),#64,#2000,(#226));#2002=INVISIBILITY((#2001)"
     ");",
     {L"pair/upper"},
     0,
     {}},
    {"OneOccurrence",
     "#2000=STYLED_ITEM('',(#1200),#64);"
     "#2001=CONTEXT_DEPENDENT_OVER_RIDING_STYLED_ITEM('',(#1200),#64,#2000,(#51,#226));"
     "#2002=INVISIBILITY((#2001));",
     {L"left pair/upper"},
     0,
     {}},
    {"Assembly", "#2000=INVISIBILITY((#36));", {L"rig/left", L"rig/right"}, 0, {}},
    {"Annotations", "#2000=INVISIBILITY((#1024));", {}, 0, {L"Flatness.1"}},
    {"Occurrences", "#2000=INVISIBILITY((#1051));", {}, 0, {L"Width.1"}},
    {"LayerOfAnnotations",
     "#2000=PRESENTATION_LAYER_ASSIGNMENT('off','',(#1024,#1051));#2001=INVISIBILITY((#2000));",
     {},
     0,
     {L"Flatness.1", L"Width.1"}},
    {"Drawing", "#2000=INVISIBILITY((#1031));", {}, 0, {L"Flatness.1"}},
    {"Damaged", "#2000=INVISIBILITY((#2000,#9999));#2001=INVISIBILITY($);#2002=INVISIBILITY(3);", {}, 0, {}},
};

class HiddenItemsTest : public testing::TestWithParam<HiddenCase>
{
};

void addAnnotations(NarMetaPmi::PMIContainer const* container, std::set<std::wstring>& names)
{
    if (!container) return;
    for (auto const id : container->GetHiddenAnnotations()) {
        std::shared_ptr<PMIAnnotation> annotation;
        ASSERT_TRUE(container->GetAnnotation(id, PMIAnnotationType::Any, annotation));
        names.insert(annotation->GetName());
    }
}
} // namespace

TEST_P(HiddenItemsTest, AreHiddenInTheModelAndNothingElseIs)
{
    auto text = bytesOf(ZEL_SOURCE_DIR "/tests/narmeta_io/data/rig.stp");
    text.insert(text.rfind("ENDSEC;"), GetParam().statements);
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("rig.stp", text));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);

    std::set<std::wstring> instances, annotations;
    std::size_t faces = 0;
    auto const look = [&](std::wstring const& owner, auto const& list) {
        for (auto const& instance : list) {
            bool hidden = false;
            if (instance->GetHidden(hidden) && hidden)
                instances.insert(owner + L"/" + instance->GetInstanceName());
        }
    };
    look(L"rig", read->model.GetRootInstances());
    addAnnotations(read->model.GetPMI().get(), annotations);
    for (auto const& root : read->model.GetRootInstances()) {
        auto const& pair = *root->GetReference();
        bool const isOwn = read->model.GetOccurrencesCount(pair) == 1;
        look((isOwn ? root->GetInstanceName() + L" " : std::wstring()) + pair.GetReferenceName(),
             pair.GetInstances());
    }
    for (auto const& reference : read->model.GetReferences()) {
        addAnnotations(reference->GetPmi().get(), annotations);
        for (auto const& body : reference->GetBodies())
            if (body.hidden) faces += body.faces.size();
    }
    EXPECT_EQ(instances, GetParam().instances);
    EXPECT_EQ(faces, GetParam().faces);
    EXPECT_EQ(annotations, GetParam().annotations);
}

INSTANTIATE_TEST_SUITE_P(Ways, HiddenItemsTest, testing::ValuesIn(Cases),
                         [](auto const& test) { return test.param.name; });
