#include "StepDrawings.h"
#include "StepEntities.h"
#include "StepGeometry.h"
#include "StepPictures.h"
#include "StepProducts.h"
#include "StepVisibility.h"
#include "read_support.h"
#include "step_header.h"
#include "step_quantity.h"
#include "step_tessellation.h"

#include <narmeta/infra/ZELDocumentInformation.h>

#include <gtest/gtest.h>

#include <set>

#include <cmath>

using namespace NarMetaInfra;

namespace
{
std::string file(std::string const& data)
{
    return "ISO-10303-21;\nHEADER;\nFILE_NAME('DATA; #1=A();');\nENDSEC;\nDATA;\n" + data +
           "\nENDSEC;\nEND-ISO-10303-21;\n";
}

double length(StepPolyline const& line)
{
    double sum = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        auto const step = line[i] - line[i - 1];
        sum += std::sqrt(dot(step, step));
    }
    return sum;
}
} // namespace

TEST(StepEntities, FindsEntitiesOfOneAndOfSeveralTypes)
{
    auto const text =
        file("#1=POINT('a;b''c',(1.,2.5E1,-.5));/* #2=POINT(); */\n"
             "#3 = ( LENGTH_UNIT() NAMED_UNIT(*) SI_UNIT(.MILLI.,.METRE.) );#4=POINT($,#1,LIST((#3,#9)));");
    StepEntities const entities(text);
    EXPECT_EQ(entities.count(), 3u);
    EXPECT_EQ(entities.ofKind("POINT").size(), 2u);
    EXPECT_EQ(entities.argument(1, 0).words(), L"a;b'c");
    EXPECT_EQ(entities.argument(1, 1).items.at(1).value(), 25.0);
    EXPECT_EQ(entities.argument(1, 1).items.at(2).value(), -0.5);
    EXPECT_TRUE(entities.isKind(3, "LENGTH_UNIT"));
    EXPECT_EQ(entities.argument(3, 99, "SI_UNIT", 1).text, "METRE");
    EXPECT_EQ(entities.argument(4, 1).entity(), 1);
    EXPECT_EQ(entities.argument(4, 2).entities(), (std::vector{3, 9}));
    EXPECT_EQ(entities.argument(4, 7).kind, StepValue::Kind::Absent);
    EXPECT_EQ(entities.argument(77, 0).kind, StepValue::Kind::Absent);
}

TEST(StepEntities, SurviveTextThatCantBeFollowed)
{
    for (auto const* const data :
         {"#1=A(", "#1=A(((((((", "#1=A('never", "#1=A(#);", "#1=A(1..2);", "#99999999999999=A();", "#1=;",
          "#=A();", "#1=(A(B(C(", "#1=A(.T);", "#1=A(+);", "/* never"}) {
        auto const text = file(data);
        StepEntities const entities(text);
        EXPECT_LE(entities.arguments(1).size(), 2u) << data;
    }
    auto const deep = file("#1=A(" + std::string(200'000, '(') + ");");
    EXPECT_EQ(StepEntities(deep).argument(1, 0).kind, StepValue::Kind::List);
}

TEST(StepWords, AreDecoded)
{
    struct Case {
        char const* characters;
        wchar_t const* words;
    };
    for (auto const& [characters, words] :
         {Case{"it''s", L"it's"}, Case{"\\X2\\00D8\\X0\\12", L"\u00D812"},
          Case{"\\X2\\D83DDE00\\X0\\", L"\U0001F600"}, Case{"\\X\\C4x", L"\u00C4x"},
          Case{"\\S\\D", L"\u00C4"}, Case{"\\X4\\0001F600\\X0\\!", L"\U0001F600!"}, Case{"\\X2\\00", L"00"},
          Case{"C:\\\\a", L"C:\\a"}, Case{"\xC3\xA4\xE4", L"\u00E4\u00E4"}})
        EXPECT_EQ(decodeStepText(characters), words) << characters;
}

TEST(StepGeometry, DrawsCurvesInMillimetres)
{
    auto const text =
        file("#1=(GEOMETRIC_REPRESENTATION_CONTEXT(3) GLOBAL_UNIT_ASSIGNED_CONTEXT((#2,#3)) "
             "REPRESENTATION_CONTEXT('',''));"
             "#2=(CONVERSION_BASED_UNIT('INCH',#4) LENGTH_UNIT() NAMED_UNIT(#9));"
             "#3=(NAMED_UNIT(*) PLANE_ANGLE_UNIT() SI_UNIT($,.RADIAN.));"
             "#4=LENGTH_MEASURE_WITH_UNIT(LENGTH_MEASURE(25.4),#5);"
             "#5=(LENGTH_UNIT() NAMED_UNIT(*) SI_UNIT(.MILLI.,.METRE.));"
             "#10=CARTESIAN_POINT('',(0.,0.,1.));#11=DIRECTION('',(0.,1.,0.));#12=AXIS2_PLACEMENT_3D('',#10,#"
             "11,$);"
             "#13=CIRCLE('',#12,2.);#14=TRIMMED_CURVE('',#13,(PARAMETER_VALUE(0.)),(PARAMETER_VALUE(1."
             "5707963267948966)),.T.,"
             ".PARAMETER.);#15=TRIMMED_CURVE('',#13,(PARAMETER_VALUE(0.)),(PARAMETER_VALUE(1."
             "5707963267948966)),.F.,.PARAMETER."
             ");#20=CARTESIAN_POINT('',(1.,0.,0.));#21=CARTESIAN_POINT('',(1.,1.,0.));#22=CARTESIAN_POINT('',"
             "(0.,1.,0.));"
             "#23=POLYLINE('',(#20,#21,#22));"
             "#24=(BOUNDED_CURVE() B_SPLINE_CURVE(2,(#20,#21,#22),.UNSPECIFIED.,.F.,.F.) "
             "B_SPLINE_CURVE_WITH_KNOTS((3,3),(0.,1."
             "),.UNSPECIFIED.) CURVE() GEOMETRIC_REPRESENTATION_ITEM() "
             "RATIONAL_B_SPLINE_CURVE((1.,0.70710678118,1.)) "
             "REPRESENTATION_ITEM(''));"
             "#25=COMPOSITE_CURVE('',(#26,#27),.F.);#26=COMPOSITE_CURVE_SEGMENT(.CONTINUOUS.,.T.,#23);"
             "#27=COMPOSITE_CURVE_SEGMENT(.CONTINUOUS.,.T.,#25);");
    StepEntities const entities(text);
    StepGeometry const geometry(entities, 1);
    auto const quarter = 3.14159265 / 2 * 25.4;
    EXPECT_NEAR(length(geometry.curve(13)), 8 * quarter, 0.5);
    EXPECT_NEAR(length(geometry.curve(14)), 2 * quarter, 0.1);
    EXPECT_NEAR(length(geometry.curve(15)), 6 * quarter, 0.4);
    EXPECT_NEAR(geometry.curve(14).front()[2], 25.4, 1e-9);
    EXPECT_NEAR(length(geometry.curve(23)), 2 * 25.4, 1e-9);
    EXPECT_NEAR(length(geometry.curve(24)), quarter, 0.1);           // rational: a quarter of a circle
    EXPECT_NEAR(length(geometry.curve(25)), 9 * 2 * 25.4, 9 * 50.8); // contains itself, and ends all the same
}

TEST(StepProducts, AChainOfUsagesThatContainsItselfEnds)
{
    auto const text = file("#1=SPECIFIED_HIGHER_USAGE_OCCURRENCE('','','',#8,#9,$,#2,#7);"
                           "#2=SPECIFIED_HIGHER_USAGE_OCCURRENCE('','','',#8,#9,$,#1,#7);");
    StepEntities const entities(text);
    EXPECT_TRUE(StepProducts(entities).usesOf(1).empty());
}

TEST(StepPictures, KeepColoursPatternsAndHoles)
{
    auto const text = file(
        "#1=DRAUGHTING_CALLOUT('c',(#2,#3));"
        "#2=ANNOTATION_CURVE_OCCURRENCE('',(#10),#20);#3=ANNOTATION_FILL_AREA_OCCURRENCE('',(#12),#30,#40);"
        "#10=PRESENTATION_STYLE_ASSIGNMENT((#11));#11=CURVE_STYLE('',#14,POSITIVE_LENGTH_MEASURE(0.7),#15);"
        "#12=PRESENTATION_STYLE_ASSIGNMENT((#13));#13=FILL_AREA_STYLE('',(#16));#16=FILL_AREA_STYLE_COLOUR(''"
        ",#17);"
        "#14=DRAUGHTING_PRE_DEFINED_CURVE_FONT('dashed');#15=COLOUR_RGB('',1.,0.,0.2);"
        "#17=DRAUGHTING_PRE_DEFINED_COLOUR('green');"
        "#20=GEOMETRIC_CURVE_SET('',(#21,#22));#21=POLYLINE('',(#40,#41));#22=POLYLINE('',(#41,#42));"
        "#30=ANNOTATION_FILL_AREA('',(#31,#32));#31=POLYLINE('',(#40,#41,#42,#40));#32=POLYLINE('',(#40,#41,#"
        "43,#40));"
        "#40=CARTESIAN_POINT('',(0.,0.,0.));#41=CARTESIAN_POINT('',(9.,0.,0.));#42=CARTESIAN_POINT('',(0.,9.,"
        "0.));"
        "#43=CARTESIAN_POINT('',(1.,1.,0.));");
    StepEntities const entities(text);
    StepStyles const styles(entities);
    auto const picture = StepPictures(entities, styles).of(1, StepGeometry(entities, 0));
    ASSERT_EQ(picture.lines.size(), 1u); // two pieces that follow each other
    EXPECT_EQ(picture.lines[0].points.size(), 3u);
    EXPECT_EQ(picture.lines[0].look.line, (NarMeta::Colour{255, 0, 51}));
    EXPECT_EQ(picture.lines[0].look.pattern, NarMetaVisu::LineAttribute::Dashed);
    EXPECT_EQ(picture.lines[0].look.width, 0.7);
    ASSERT_EQ(picture.areas.size(), 1u);
    EXPECT_EQ(picture.areas[0].outlines.size(), 2u);
    EXPECT_EQ(picture.areas[0].outlines[0].size(), 3u);
    EXPECT_EQ(picture.areas[0].look.fill, (NarMeta::Colour{0, 255, 0}));
}

TEST(StepTessellation, MakesABodyOfTriangles)
{
    auto const text = file(
        "#1=PRODUCT_DEFINITION('','',#90,#91);#2=PRODUCT_DEFINITION_SHAPE('','',#1);"
        "#3=SHAPE_DEFINITION_REPRESENTATION(#2,#4);#4=TESSELLATED_SHAPE_REPRESENTATION('',(#5),#92);"
        "#5=TESSELLATED_SOLID('wedge',(#6,#7),$);#8=COORDINATES_LIST('',4,((0.,0.,0.),(2.,0.,0.),(0.,2.,0.),"
        "(0.,0.,2.)));"
        "#6=COMPLEX_TRIANGULATED_FACE('',#8,4,((0.,0.,-1.)),$,(1,3,2,4),((1,2,3)),((4,1,3)));"
        "#7=TRIANGULATED_FACE('',#8,4,(),$,(),((1,4,3),(2,3,4),(1,2,99)));");
    StepEntities const entities(text);
    auto const bodies = stepTessellation(entities, 1, 7);
    ASSERT_EQ(bodies.size(), 1u);
    EXPECT_EQ(bodies[0].name, L"wedge");
    EXPECT_EQ(CountsOf(bodies[0]).faces, 2u);
    EXPECT_EQ(CountsOf(bodies[0]).triangles, 4u); // the one with a number out of range is gone
    EXPECT_EQ(bodies[0].normals.size(), bodies[0].points.size());
    EXPECT_TRUE(stepTessellation(entities, 2, 7).empty());
}

TEST(StepHeader, SaysWhoWroteTheFileAndWhen)
{
    auto const lines =
        stepHeaderLines("ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION(('a part','of two; words'),'2;1');\n"
                        "FILE_NAME('it''s (one), thing','2020-01-02',('Ann'),(''),'pre','','');\n"
                        "FILE_SCHEMA(('AP242'));\nENDSEC;\nDATA;\n#1=FILE_NAME('no');\n");
    std::vector<std::pair<std::wstring, std::wstring>> const expected = {
        {L"Name", L"it's (one), thing"},
        {L"Date", L"2020-01-02"},
        {L"Author", L"Ann"},
        {L"Written by", L"pre"},
        {L"Description", L"a part, of two; words"},
        {L"Schema", L"AP242"}};
    EXPECT_EQ(lines, expected);
    for (auto const* const odd :
         {"", "FILE_NAME", "FILE_NAME('never closed", "FILE_NAME(", "FILE_NAME('a','b'"})
        EXPECT_LE(stepHeaderLines(odd).size(), 2u) << odd;
}

TEST(StepHeader, StandsInTheDocumentInformation)
{
    auto const file = ReadSupport::modelFolder() / "parts/sofle_SOLENOID.STEP";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    auto const information = read->model.GetDocumentInformation();
    ASSERT_TRUE(information);
    std::wstring text;
    information->GetAsString(text);
    EXPECT_NE(text.find(L"Schema"), std::wstring::npos);
}

TEST(StepLayers, ArePropertiesOfTheirProducts)
{
    auto const file = ReadSupport::modelFolder() / "nist/nist_ctc_05_asme1_ap242-e1.stp";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    std::set<std::wstring> layers;
    for (auto const& reference : read->model.GetReferences())
        for (auto const& [name, value] : reference->GetUserProperties())
            if (name == L"Layer") layers.insert(value);
    EXPECT_EQ(layers, (std::set<std::wstring>{L"001", L"041", L"061"}));
}

namespace
{
using Lines = std::multiset<std::pair<std::wstring, std::wstring>>;

Lines linesOf(ZELReference const& reference)
{
    Lines lines;
    for (auto const& [name, value] : reference.GetUserProperties()) lines.emplace(name, value);
    return lines;
}

std::shared_ptr<ZELReference> firstNamed(ZELProductStructure const& model, std::wstring const& name)
{
    for (auto const& reference : model.GetReferences())
        if (reference->GetReferenceName() == name) return reference;
    return nullptr;
}

Lines documentLines(ZELProductStructure const& model)
{
    if (!model.GetDocumentInformation()) return {};
    auto const& lines = model.GetDocumentInformation()->GetLines();
    return {lines.begin(), lines.end()};
}
} // namespace

TEST(StepProductProperties, AreThoseOfTheProductAndOfItsShape)
{
    auto const read = ReadSupport::read(ZEL_SOURCE_DIR "/tests/narmeta_io/data/plate.stp");
    EXPECT_EQ(linesOf(*firstNamed(read->model, L"plate")),
              (Lines{{L"Part number", L"plate"},
                     {L"Supplier", L"in house"},
                     {L"geometric validation property: volume measure", L"4000 mm\u00B3"},
                     {L"geometric validation property: surface area measure", L"2200 mm\u00B2"},
                     {L"geometric validation property: centre point", L"20, 10, 2.5 mm"}}));
}

TEST(StepProductProperties, OfTheTopAssemblyStandInTheDocumentInformation)
{
    auto const read = ReadSupport::read(ZEL_SOURCE_DIR "/tests/narmeta_io/data/rack.stp");
    auto const lines = documentLines(read->model);
    EXPECT_TRUE(lines.contains({L"Part number", L"rack"}));
    EXPECT_TRUE(lines.contains({L"Name", L"rack"}));
}

TEST(StepProductProperties, KeepTheNumbersAndUnitsOfRealFiles)
{
    auto const robot = ReadSupport::modelFolder() / "asm/low_cost_robot_follower_arm.step";
    auto const tested = ReadSupport::modelFolder() / "nist/nist_ctc_05_asme1_ap242-e1.stp";
    REQUIRE_MODEL_FILE(robot);
    REQUIRE_MODEL_FILE(tested);
    auto const arm = ReadSupport::read(robot);
    auto const cover = firstNamed(arm->model, L"DX124_SCREW-COVER");
    ASSERT_TRUE(cover);
    EXPECT_TRUE(linesOf(*cover).contains({L"material property: density measure", L"7850 kg/m\u00B3"}));
    EXPECT_TRUE(documentLines(arm->model).contains({L"Part number", L"Robot Arm"}));
    auto const part = ReadSupport::read(tested);
    auto const lines = linesOf(*part->model.GetReferences().front());
    for (auto const& line : Lines{{L"FILESIZE", L"1495040"},
                                  {L"Part Number", L"NIST PMI CTC 05 ASME1"},
                                  {L"Revision description", L"version 0 for nist_ctc_05_asme1"}})
        EXPECT_TRUE(lines.contains(line));
}

TEST(StepQuantity, HasItsUnit)
{
    auto const text = file(
        "#1=(LENGTH_UNIT() NAMED_UNIT(*) SI_UNIT(.MILLI.,.METRE.));#2=(LENGTH_UNIT() NAMED_UNIT(*) "
        "SI_UNIT($,.METRE.));"
        "#3=(CONVERSION_BASED_UNIT('INCH',#4) LENGTH_UNIT() NAMED_UNIT(#9));"
        "#4=LENGTH_MEASURE_WITH_UNIT(LENGTH_MEASURE(25.4),#1);#5=(MASS_UNIT() NAMED_UNIT(*) "
        "SI_UNIT(.KILO.,.GRAM.));"
        "#6=DERIVED_UNIT((#7));#7=DERIVED_UNIT_ELEMENT(#3,3.);#10=DERIVED_UNIT((#11,#12));"
        "#11=DERIVED_UNIT_ELEMENT(#2,-3.);#12=DERIVED_UNIT_ELEMENT(#5,1.);"
        "#13=(CONVERSION_BASED_UNIT('DEGREE',#14) NAMED_UNIT(#9) PLANE_ANGLE_UNIT());"
        "#14=PLANE_ANGLE_MEASURE_WITH_UNIT(PLANE_ANGLE_MEASURE(0.017453292519943295),#15);"
        "#15=(NAMED_UNIT(*) PLANE_ANGLE_UNIT() SI_UNIT($,.RADIAN.));"
        "#20=MEASURE_REPRESENTATION_ITEM('',VOLUME_MEASURE(2.),#6);"
        "#21=MEASURE_REPRESENTATION_ITEM('',NUMERIC_MEASURE(7850.),#10);"
        "#22=MEASURE_REPRESENTATION_ITEM('',PLANE_ANGLE_MEASURE(30.),#13);"
        "#23=MEASURE_REPRESENTATION_ITEM('',MASS_MEASURE(1.5),#5);#24=MEASURE_REPRESENTATION_ITEM('',COUNT_"
        "MEASURE(3.),$);"
        "#25=LENGTH_MEASURE_WITH_UNIT(LENGTH_MEASURE(2.),#3);#26=MEASURE_REPRESENTATION_ITEM('',$,#1);");
    StepEntities const entities(text);
    struct Case {
        int item;
        wchar_t const* words;
    };
    for (auto const& [item, words] :
         {Case{20, L"32774.128 mm\u00B3"}, Case{21, L"7850 kg/m\u00B3"}, Case{22, L"30\u00B0"},
          Case{23, L"1.5 kg"}, Case{24, L"3"}, Case{25, L"50.8 mm"}, Case{26, L""}, Case{99, L""}})
        EXPECT_EQ(stepQuantity(entities, item), words) << item;
}

// Hostile files: whoever follows everything would be at it for years.
TEST(StepRings, OfDrawingsSymbolsLayersAndUsesEnd)
{
    std::string drawing = "#1=DRAUGHTING_MODEL('',(#3", symbol = "#4=REPRESENTATION('',(#5", layer = "(#1";
    std::string uses, maps = "#2=REPRESENTATION_MAP(#90,#1);#6=REPRESENTATION_MAP(#90,#4);";
    for (int i = 100; i < 200; ++i) {
        drawing += ",#" + std::to_string(i);
        symbol += ",#" + std::to_string(i + 100);
        layer += ",#" + std::to_string(i + 200);
        maps += "#" + std::to_string(i) + "=MAPPED_ITEM('',#2,#90);#" + std::to_string(i + 100) +
                "=MAPPED_ITEM('',#6,#90);";
        uses += "#" + std::to_string(i + 300) + "=NEXT_ASSEMBLY_USAGE_OCCURRENCE('','','',#50,#51,$);#" +
                std::to_string(i + 400) + "=NEXT_ASSEMBLY_USAGE_OCCURRENCE('','','',#51,#50,$);";
    }
    for (int i = 300; i < 400; ++i)
        maps += "#" + std::to_string(i) + "=PRESENTATION_LAYER_ASSIGNMENT('','',#7);";
    auto const text =
        file(drawing + "),#91);" + symbol + "),#91);" + maps + uses + "#7=INVISIBILITY(" + layer +
             "));#3=ANNOTATION_SYMBOL_OCCURRENCE('',(),#100);#5=ANNOTATION_OCCURRENCE('',(),#200);");
    StepEntities const entities(text);
    StepProducts const products(entities);
    StepDrawings const drawings(entities, products);
    EXPECT_FALSE(drawings.placesOf(1).empty());
    EXPECT_FALSE(drawings.itemsOf(1).empty());
    StepStyles const styles(entities);
    EXPECT_TRUE(StepPictures(entities, styles).of(5, StepGeometry(entities, 0)).isEmpty());
    EXPECT_TRUE(StepVisibility(entities, products).isHidden(1));
    EXPECT_LE(products.waysDown(50, 51, {}).size(), 64u);
    EXPECT_TRUE(products.waysDown(50, 52, {}).empty());
}
