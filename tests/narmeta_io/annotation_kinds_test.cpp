// What annotations of each kind say, in files of our own, one statement after the other, and in real ones.
#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace ReadSupport;
using namespace NarMetaPmi;

namespace
{
std::filesystem::path const Plate = ZEL_SOURCE_DIR "/tests/narmeta_io/data/plate.stp";

/// The annotations of a part by their names.
std::multimap<std::wstring, std::shared_ptr<PMIAnnotation>> annotationsOf(ZELReference const& part)
{
    std::multimap<std::wstring, std::shared_ptr<PMIAnnotation>> all;
    if (!part.GetPmi()) return all;
    auto const add = [&](auto const& list) {
        for (auto const& one : list) all.emplace(one->GetName(), one);
    };
    for (auto const& [pid, sets] : part.GetPmi()->GetOwners()) {
        for (auto const& set : sets) {
            for (auto const& view : set->GetViews()) {
                auto const& members = view->Content();
                add(members.notes), add(members.datums), add(members.datumTargets);
                add(members.tolerances), add(members.dimensions), add(members.roughnesses);
            }
        }
    }
    return all;
}

struct KindCase {
    char const* name;
    char const* statements; ///< added to the plate
    wchar_t const* annotation;
    PMIAnnotationType type;
    wchar_t const* text;
    std::size_t links;
};

constexpr auto Dimension = PMIAnnotationType::Dimension;
constexpr auto Tolerance = PMIAnnotationType::GeometricTolerance;

// #1001, #1003 and #1005 are features of one face each, #166 is a millimetre, #1022 datum A.
KindCase const Cases[] = {
    {"Length", "", L"Length.1", Dimension, L"40 +0.2 -0.1", 2},
    {"Datum", "", L"datum feature A", PMIAnnotationType::Datum, L"A", 1},
    {"RoundTarget", "", L"Datum target A1 (circle \u23006)", PMIAnnotationType::Datum, L"A1 (circle \u23006)",
     1},
    {"Roughness", "", L"Roughness.1", PMIAnnotationType::Roughness, L"Ra 0.0016 mm, lay perpendicular", 1},
    {"Note", "", L"Note.1", PMIAnnotationType::Note, L"DEBURR ALL EDGES", 1},
    {"MarkedNote",
     "#2000=PROPERTY_DEFINITION('pmi validation property','',#2001);"
     "#2001=CHARACTERIZED_ITEM_WITHIN_REPRESENTATION('','',#1083,#1100);"
     "#2002=PROPERTY_DEFINITION_REPRESENTATION(#2000,#2003);#2003=REPRESENTATION('',(#2004),#165);"
     "#2004=DESCRIPTIVE_REPRESENTATION_ITEM('equivalent unicode string','TXT\\\\nTWO\\\\nLINES "
     "\\X2\\00D8\\X0\\5');",
     L"Note.2", PMIAnnotationType::Note, L"TWO LINES \u00D85", 0},
    {"SetNote",
     "#2000=DRAUGHTING_CALLOUT('Note.3',(#2001,#2002));#2001=ANNOTATION_TEXT_OCCURRENCE('',(#1090),#2003);"
     "#2002=ANNOTATION_TEXT_OCCURRENCE('',(#1090),#2004);#2003=TEXT_LITERAL('note','HEAT','',.RIGHT.,$);"
     "#2004=TEXT_LITERAL('note','TREATED',#11,'',.RIGHT.,$);#2005=DRAUGHTING_MODEL('',(#2000),#165);"
     "#2006=DRAUGHTING_MODEL_ITEM_ASSOCIATION('','',#1003,#2005,#2000);",
     L"Note.3", PMIAnnotationType::Note, L"HEAT TREATED", 1},
    {"Diameter",
     "#2000=DIMENSIONAL_SIZE(#1005,'diameter');#2001=DIMENSIONAL_CHARACTERISTIC_REPRESENTATION(#2000,#2002);"
     "#2002=SHAPE_DIMENSION_REPRESENTATION('',(#2003),#165);#2003=(LENGTH_MEASURE_WITH_UNIT() "
     "MEASURE_REPRESENTATION_ITEM() MEASURE_WITH_UNIT(LENGTH_MEASURE(8.),#166) REPRESENTATION_ITEM('nominal "
     "value'));",
     L"Dimension \u23008", Dimension, L"\u23008", 1},
    {"Fit",
     "#2000=DIMENSIONAL_SIZE(#1005,'diameter');#2001=DIMENSIONAL_CHARACTERISTIC_REPRESENTATION(#2000,#2002);"
     "#2002=SHAPE_DIMENSION_REPRESENTATION('',(#2003),#165);#2003=(LENGTH_MEASURE_WITH_UNIT() "
     "MEASURE_REPRESENTATION_ITEM() MEASURE_WITH_UNIT(LENGTH_MEASURE(8.),#166) REPRESENTATION_ITEM('nominal "
     "value'));#2004=PLUS_MINUS_TOLERANCE(#2005,#2000);#2005=LIMITS_AND_FITS('H','hole','7','ISO 286');",
     L"Dimension \u23008 H7", Dimension, L"\u23008 H7", 1},
    {"IdealLocation",
     "#2000=DIMENSIONAL_LOCATION('linear distance','',#1001,#1005);#2001=DIMENSIONAL_CHARACTERISTIC_"
     "REPRESENTATION(#2000,#2002);#2002=SHAPE_DIMENSION_REPRESENTATION('',(#2003,#2004),#165);#2003=(LENGTH_"
     "MEASURE_WITH_UNIT() MEASURE_REPRESENTATION_ITEM() MEASURE_WITH_UNIT(LENGTH_MEASURE(12.),#166) "
     "REPRESENTATION_ITEM('nominal value'));#2004=DESCRIPTIVE_REPRESENTATION_ITEM('dimensional "
     "note','theoretical');",
     L"Dimension [12]", Dimension, L"[12]", 2},
    {"AngleInRadians",
     "#2000=ANGULAR_LOCATION('','',#1001,#1005,.SMALL.);#2001=DIMENSIONAL_CHARACTERISTIC_REPRESENTATION(#"
     "2000,"
     "#2002);#2002=SHAPE_DIMENSION_REPRESENTATION('',(#2003),#165);#2003=(MEASURE_REPRESENTATION_ITEM() "
     "MEASURE_WITH_UNIT(PLANE_ANGLE_MEASURE(1.5707963267949),#167) PLANE_ANGLE_MEASURE_WITH_UNIT() "
     "REPRESENTATION_ITEM('nominal value'));",
     L"Dimension 90\u00B0", Dimension, L"90\u00B0", 2},
    {"Limits",
     "#2000=DIMENSIONAL_SIZE(#1005,'thickness');#2001=DIMENSIONAL_CHARACTERISTIC_REPRESENTATION(#2000,#2002);"
     "#2002=SHAPE_DIMENSION_REPRESENTATION('',(#2003,#2004),#165);#2003=(LENGTH_MEASURE_WITH_UNIT() "
     "MEASURE_REPRESENTATION_ITEM() MEASURE_WITH_UNIT(LENGTH_MEASURE(5.5),#166) REPRESENTATION_ITEM('upper "
     "limit'));#2004=(LENGTH_MEASURE_WITH_UNIT() MEASURE_REPRESENTATION_ITEM() "
     "MEASURE_WITH_UNIT(LENGTH_MEASURE(4.5),#166) REPRESENTATION_ITEM('lower limit'));",
     L"Dimension 5 \u00B10.5", Dimension, L"5 \u00B10.5", 1},
    {"Position",
     "#2000=(GEOMETRIC_TOLERANCE('Position.1','',#1041,#1005) "
     "GEOMETRIC_TOLERANCE_WITH_DATUM_REFERENCE((#2001)) "
     "GEOMETRIC_TOLERANCE_WITH_MODIFIERS((.MAXIMUM_MATERIAL_REQUIREMENT.)) POSITION_TOLERANCE());"
     "#2001=DATUM_SYSTEM('','',#4,.F.,(#2002));#2002=DATUM_REFERENCE_COMPARTMENT('','',#4,.F.,#1022,$);"
     "#2003=TOLERANCE_ZONE('',$,#4,.F.,(#2000),#2004);#2004=TOLERANCE_ZONE_FORM('within a cylinder');"
     "#2005=PROJECTED_ZONE_DEFINITION(#2003,(),#1005,#1017);",
     L"Position.1", Tolerance, L"\u23000.05 \u24C50.2 \u24C2 | A", 1},
    {"OldPosition",
     "#2000=POSITION_TOLERANCE('Position.1','',#1041,#1005,(#2001));#2001=DATUM_REFERENCE(1,#1022);"
     "#2003=TOLERANCE_ZONE('',$,#4,.F.,(#2000),#2004);#2004=TOLERANCE_ZONE_FORM('spherical');",
     L"Position.1", Tolerance, L"S\u23000.05 | A", 1},
    {"FlatnessOfPieces",
     "#2000=(FLATNESS_TOLERANCE() GEOMETRIC_TOLERANCE('Flatness.2','',#1041,#1005) "
     "GEOMETRIC_TOLERANCE_WITH_DEFINED_AREA_UNIT(.RECTANGULAR.,#1017) "
     "GEOMETRIC_TOLERANCE_WITH_DEFINED_UNIT(#1041));",
     L"Flatness.2", Tolerance, L"0.05 / 0.05\u00D70.2", 1},
    {"ToleranceOfADimension",
     "#2000=STRAIGHTNESS_TOLERANCE('Straightness.1','',#1041,#2001);"
     "#2001=DIMENSIONAL_SIZE(#1003,'length');",
     L"Straightness.1", Tolerance, L"0.05", 1},
};

class AnnotationKindTest : public testing::TestWithParam<KindCase>
{
};
} // namespace

TEST_P(AnnotationKindTest, SaysWhatTheEntitiesSay)
{
    auto const& expected = GetParam();
    auto text = bytesOf(Plate);
    text.insert(text.rfind("ENDSEC;"), expected.statements);
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("plate.stp", text));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    auto const& part = *read->model.GetReferences().front();
    auto const all = annotationsOf(part);
    ASSERT_EQ(all.count(expected.annotation), 1u);
    auto const& found = *all.find(expected.annotation)->second;
    EXPECT_EQ(found.GetAnnotationType(), expected.type);
    EXPECT_EQ(found.GetText(), expected.text);
    EXPECT_EQ(found.GetLinkedEntities().size(), expected.links);
    for (auto const& [path, name] : found.GetLinkedEntities()) {
        EXPECT_TRUE(path.empty());
        EXPECT_TRUE(part.GetEntityNames().contains(name));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, AnnotationKindTest, testing::ValuesIn(Cases),
                         [](auto const& test) { return test.param.name; });

TEST(AnnotationKinds, HaveValuesBehindTheirTexts)
{
    auto const read = ReadSupport::read(Plate);
    auto const all = annotationsOf(*read->model.GetReferences().front());
    auto const& length = dynamic_cast<PMIDimension const&>(*all.find(L"Length.1")->second);
    EXPECT_EQ(length.GetValue(), (PMIDimensionValue{40.0, 0.2, -0.1}));
    PMIDimensionType type{};
    PMIDimensionSubType measured{};
    length.GetType(type, measured);
    EXPECT_EQ(type, PMIDimensionType::Location);
    EXPECT_EQ(measured, PMIDimensionSubType::Distance);
    PMIToleranceType tolerance{};
    double width = 0;
    dynamic_cast<PMIGDT const&>(*all.find(L"Flatness.1")->second).GetToleranceInfo(tolerance, width);
    EXPECT_EQ(tolerance, PMIToleranceType::Flatness);
    EXPECT_EQ(width, 0.05);
    EXPECT_TRUE(
        dynamic_cast<PMIDatumTarget const*>(all.find(L"Datum target A1 (circle \u23006)")->second.get()));
}

TEST(AnnotationKinds, KeepWhatTheirAuthorsNoted)
{
    auto const read = ReadSupport::read(Plate);
    auto const all = annotationsOf(*read->model.GetReferences().front());
    std::multimap<std::wstring, std::wstring> noted;
    for (auto const& [name, value] : all.find(L"Note.1")->second->GetUserProperties())
        noted.emplace(name, value);
    EXPECT_EQ(noted,
              (std::multimap<std::wstring, std::wstring>{{L"equivalent unicode string", L"DEBURR ALL EDGES"},
                                                         {L"inspection: class", L"major"},
                                                         {L"inspection: sample size", L"3"}}));
}

TEST(AnnotationKinds, OfRealFilesSayWhatIsDrawn)
{
    struct Case {
        char const* file;
        wchar_t const* name;
        wchar_t const* text;
    };
    for (auto const& [name, annotation, text] :
         {Case{"nist_ftc_07_asme1_ap242-e2.stp", L"Perpendicularity.1", L"\u23000.381 \u24C510.795 | A"},
          Case{"nist_ftc_07_asme1_ap242-e2.stp", L"Flatness.1", L"0.254 / \u230025.4"},
          Case{"nist_ftc_07_asme1_ap242-e2.stp", L"Linear Size.1", L"\u23006.35 +0.0762 +0"},
          Case{"nist_ftc_07_asme1_ap242-e2.stp", L"Linear Size.13", L"R0.4318 \u00B10.127"},
          Case{"nist_ftc_07_asme1_ap242-e2.stp", L"Text.4", L"2 SURFACES F1.1 AND F1.2"},
          Case{"nist_stc_07_asme1_ap242-e3.stp", L"Position.1", L"\u23000.508 \u24C510.795 | A | B"},
          Case{"nist_stc_07_asme1_ap242-e3.stp", L"Flatness.1", L"0.254 / \u230025.4"},
          Case{"nist_ctc_05_asme1_ap242-e1.stp", L"Datum Target C1 (15)", L"C1 (rectangle 31.75\u00D750.8)"},
          Case{"nist_ctc_05_asme1_ap242-e1.stp", L"Horizontal Dimension (35)", L"[31.75]"}}) {
        auto const file = modelFolder() / "nist" / name;
        REQUIRE_MODEL_FILE(file);
        auto const read = ReadSupport::read(file);
        auto const all = annotationsOf(*read->model.GetReferences().front());
        auto const found = all.find(annotation);
        ASSERT_NE(found, all.end());
        EXPECT_EQ(found->second->GetText(), text) << name;
    }
}
