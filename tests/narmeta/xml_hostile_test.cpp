#include "ZelXmlFormat.h"
#include "full_model.h"
#include "model_check.h"

#include <gmock/gmock.h>

#include <random>

using namespace NarMetaInfra;

namespace
{

std::string Repeated(std::string_view text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

/// A file with one part of one face, the arrays given.
std::string FaceXml(std::string_view points, std::string_view normals, std::string_view triangles)
{
    std::string text = "<zel_xml><product pid='p'>\n<reference kind='part' pid='a'><body>\n<face><points>";
    text.append(points).append("</points><normals>").append(normals).append("</normals><triangles>");
    text.append(triangles).append(
        "</triangles></face></body></reference><instance of='a' pid='i'/></product></zel_xml>");
    return text;
}

std::string Narrow(std::wstring const& text)
{
    return {text.begin(), text.end()};
}

struct HostileCase {
    char const* name;
    std::string text;
    char const* cause;
};

class HostileXml : public testing::TestWithParam<HostileCase>
{
};

TEST_P(HostileXml, IsRefusedWithItsLineAndCause)
{
    ZELProductStructure model;
    auto const result = ReadZelXml(GetParam().text, {}, model);
    EXPECT_EQ(result.outcome, IoOutcome::Damaged);
    auto const error = Narrow(result.error);
    EXPECT_THAT(error, testing::StartsWith("line "));
    EXPECT_THAT(error, testing::HasSubstr(GetParam().cause));
    EXPECT_THAT(error, testing::Not(testing::HasSubstr("\n")));
}

INSTANTIATE_TEST_SUITE_P(
    Table, HostileXml,
    testing::ValuesIn(std::vector<HostileCase>{
        {"NotXml", "<zel_xml", "line 1"},
        {"OtherRoot", "<svg/>", "no zel_xml"},
        {"Newer", "<zel_xml version='2'/>", "newer version"},
        {"Entities", "<!DOCTYPE a [<!ENTITY b 'c'>]><zel_xml>&b;</zel_xml>", "document type"},
        {"Index", FaceXml("0 0 0 1 0 0 0 1 0", "0 0 1", "0 1 3"), "names point 3 of a face that has 3"},
        {"HugeIndex", FaceXml("0 0 0 1 0 0 0 1 0", "0 0 1", "0 1 4294967295"), "names point 4294967295"},
        {"IndexTooBigForItsType", FaceXml("0 0 0 1 0 0 0 1 0", "0 0 1", "0 1 4294967296"), "no valid number"},
        {"NegativeIndex", FaceXml("0 0 0 1 0 0 0 1 0", "0 0 1", "0 1 -1"), "no valid number"},
        {"HalfTriangle", FaceXml("0 0 0 1 0 0 0 1 0", "0 0 1", "0 1"), "multiple of 3"},
        {"HalfPoint", FaceXml("0 0 0 1", "0 0 1", "0 0 0"), "multiple of 3"},
        {"Normals", FaceXml("0 0 0 1 0 0 0 1 0", "0 0 1 0 0 1", "0 1 2"), "3 points but 2 normals"},
        {"NotANumber", FaceXml("0 0 nan 1 0 0 0 1 0", "0 0 1", "0 1 2"), "no valid number"},
        {"Infinite", FaceXml("0 0 inf 1 0 0 0 1 0", "0 0 1", "0 1 2"), "no valid number"},
        {"OutOfRange", FaceXml("0 0 1e99 1 0 0 0 1 0", "0 0 1", "0 1 2"), "no valid number"},
        {"Words", FaceXml("0 0 zero 1 0 0 0 1 0", "0 0 1", "0 1 2"), "no valid number"},
        {"NoPid", "<zel_xml><product><reference kind='part'/></product></zel_xml>", "no pid"},
        {"Kind", "<zel_xml><product><reference kind='x' pid='a'/></product></zel_xml>", "neither part"},
        {"TwoOfOnePid",
         "<zel_xml><product><reference kind='part' pid='a'/><reference kind='part' "
         "pid='a'/></product></zel_xml>",
         "one pid"},
        {"InstanceOfNothing", "<zel_xml><product>\n\n<instance of='x' pid='i'/></product></zel_xml>",
         "line 3: an instance is of \"x\""},
        {"InstanceInPart",
         "<zel_xml><product><reference kind='part' pid='a'><instance "
         "of='a'/></reference></product></zel_xml>",
         "no assembly"},
        {"Matrix",
         "<zel_xml><product><reference kind='part' pid='a'/><instance of='a'><transform>1 0 "
         "0</transform></instance>"
         "</product></zel_xml>",
         "16 valid numbers"},
        {"Colour",
         "<zel_xml><product><reference kind='part' pid='a'/><instance of='a' colour='1 2 "
         "256'/></product></zel_xml>",
         "above 255"},
        {"Alpha",
         "<zel_xml><product><reference kind='part' pid='a'/><instance of='a' "
         "alpha='-1'/></product></zel_xml>",
         "no valid number"},
        {"Flag",
         "<zel_xml><product><reference kind='part' pid='a'/><instance of='a' "
         "hidden='yes'/></product></zel_xml>",
         "neither true nor false"},
        {"DeepUnknown", "<zel_xml><product>" + Repeated("<a>", 100'000), "too deep"},
        {"DeepNodes",
         "<zel_xml><product><visualisation><group name='p'>" + Repeated("<node branch='true'>", 100'000),
         "too deep"},
        {"PolygonIndex",
         "<zel_xml><product><visualisation><group name='p'><node><mesh><face><points>0 0 0</points>"
         "<normals>0 0 1</normals><polygon type='1'><indices>0 3 "
         "1</indices></polygon></face></mesh></node></group>"
         "</visualisation></product></zel_xml>",
         "names element 3 of a face that has 3"},
        {"HugeImage",
         "<zel_xml><product><texture name='t'><image width='65535' height='65535'><level>AAAA</level></image>"
         "</texture></product></zel_xml>",
         "fewer bytes"},
        {"UnknownMaterial",
         "<zel_xml><product><visualisation><group "
         "name='p'><node><look><material>m</material></look></node></group>"
         "</visualisation></product></zel_xml>",
         "does not stand before"},
        {"ControlCharacter", "<zel_xml><product name='\x01'/></zel_xml>", "line 1"},
    }),
    [](auto const& each) { return each.param.name; });

TEST(ZelXmlReading, TruncatedAnywhereIsDamaged)
{
    ZELProductStructure full;
    FillFullModel(full);
    auto const text = *ZelXmlText(full, nullptr);
    for (int i = 0; i < 40; ++i) {
        auto const length = text.size() * static_cast<std::size_t>(i) / 40;
        ZELProductStructure model;
        auto const result = ReadZelXml(std::string_view(text).substr(0, length), {}, model);
        EXPECT_EQ(result.outcome, IoOutcome::Damaged) << "at " << length;
        EXPECT_THAT(Narrow(result.error), testing::StartsWith("line ")) << "at " << length;
    }
    EXPECT_THAT(NarMetaVisu::MaterialContainer::Instance().GetMaterials(), testing::IsEmpty());
}

TEST(ZelXmlReading, ChangedBytesNeverCrashAndAlwaysGiveAValidModel)
{
    ZELProductStructure full;
    FillFullModel(full);
    auto const text = *ZelXmlText(full, nullptr);
    std::mt19937 random(20);
    int read = 0;
    for (int round = 0; round < 500; ++round) {
        auto changed = text;
        for (auto i = 1 + random() % 3; i > 0; --i)
            changed[random() % changed.size()] = " 0123456789<>/\"=-ea.\xff"[random() % 21];
        ZELProductStructure model;
        std::vector<std::wstring> warnings;
        if (ReadZelXml(changed, {}, model).outcome != IoOutcome::Done) continue;
        ++read;
        CheckModel(model, warnings);
        for (auto const& reference : model.GetReferences())
            for (auto const& body : reference->GetBodies())
                for (auto const& face : body.faces)
                    for (auto index : body.TrianglesOf(face)) ASSERT_LT(index, face.pointCount);
    }
    EXPECT_GT(read, 30) << "too few changed files were legal to prove anything";
    NarMetaVisu::MaterialContainer::Instance().Clear();
}

TEST(ZelXmlReading, UnknownElementsAndAttributesAreSkipped)
{
    ZELProductStructure model;
    auto const result = ReadZelXml("<zel_xml><extra><product pid='no'/></extra><product pid='p' mood='good'>"
                                   "<reference kind='part' pid='a'><future><body/></future><body name='b'>"
                                   "<vertex>1 2<unit/> 3</vertex></body></reference>"
                                   "<instance of='a' pid='i'/></product></zel_xml>",
                                   {}, model);
    ASSERT_EQ(result.outcome, IoOutcome::Done) << Narrow(result.error);
    std::wstring pid;
    EXPECT_TRUE(model.GetPID(pid) && pid == L"p");
    ASSERT_EQ(model.GetReferences()[0]->GetBodies().size(), 1u);
    EXPECT_EQ(model.GetReferences()[0]->GetBodies()[0].vertices.at(0).point, (std::array<float, 3>{1, 2, 3}));
}

TEST(ZelXmlReading, AnAssemblyInItselfIsCutWithAWarning)
{
    ZELProductStructure model;
    auto const result = ReadZelXml(
        "<zel_xml><product pid='p'><reference kind='assembly' pid='a'><instance of='b' pid='1'/></reference>"
        "<reference kind='assembly' pid='b'><instance of='a' pid='2'/><instance of='c' pid='3'/></reference>"
        "<reference kind='part' pid='c'/><instance of='a' pid='4'/></product></zel_xml>",
        {}, model);
    ASSERT_EQ(result.outcome, IoOutcome::Done);
    std::vector<std::wstring> warnings;
    CheckModel(model, warnings);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_THAT(Narrow(warnings[0]), testing::HasSubstr("contains itself"));
    EXPECT_EQ(model.GetSubAssemblyReferences().size(), 2u);
    EXPECT_EQ(model.GetOccurrencesCount(*model.GetReferences()[2]), 1u);
}

TEST(ZelXmlReading, DeepChainsOfAssembliesAreFine)
{
    constexpr int levels = 20'000;
    std::string text = "<zel_xml><product pid='p'>";
    for (int i = 0; i < levels; ++i) {
        auto const number = std::to_string(i);
        text += "<reference kind='assembly' pid='r" + number + "'><instance of='r" + std::to_string(i + 1) +
                "' pid='i" + number + "'/></reference>";
    }
    text += "<reference kind='part' pid='r" + std::to_string(levels) +
            "'/><instance of='r0' pid='i'/></product></zel_xml>";
    ZELProductStructure model;
    ASSERT_EQ(ReadZelXml(text, {}, model).outcome, IoOutcome::Done);
    std::vector<std::wstring> warnings;
    CheckModel(model, warnings);
    EXPECT_EQ(model.GetSubAssemblyReferences().size(), std::size_t{levels});
}

} // namespace
