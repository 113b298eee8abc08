#include "read_support.h"

#include <gtest/gtest.h>

#include <BRepPrimAPI_MakeBox.hxx>
#include <Quantity_Color.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopExp_Explorer.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GraphNode.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gp_Ax1.hxx>
#include <gp_Trsf.hxx>

using namespace ReadSupport;

namespace
{
Quantity_Color const Red(1.0, 0.0, 0.0, Quantity_TOC_sRGB);
Quantity_Color const Green(0.0, 1.0, 0.0, Quantity_TOC_sRGB);

gp_Trsf moved(double x, double y, double z)
{
    gp_Trsf at;
    at.SetTranslation({x, y, z});
    return at;
}

/// A kernel document to be written as STEP.
class Writer
{
public:
    Writer()
    {
        XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", Document);
        Shapes = XCAFDoc_DocumentTool::ShapeTool(Document->Main());
        Colors = XCAFDoc_DocumentTool::ColorTool(Document->Main());
    }
    ~Writer() { XCAFApp_Application::GetApplication()->Close(Document); }

    TDF_Label box(char const* name, double size)
    {
        return named(Shapes->AddShape(BRepPrimAPI_MakeBox(size, size, size).Shape(), false), name);
    }
    TDF_Label assembly(char const* name) { return named(Shapes->NewShape(), name); }
    TDF_Label place(TDF_Label const& assembly, TDF_Label const& child, char const* name,
                    gp_Trsf const& at = {})
    {
        return named(Shapes->AddComponent(assembly, child, TopLoc_Location(at)), name);
    }
    void write(std::filesystem::path const& file)
    {
        Shapes->UpdateAssemblies();
        STEPCAFControl_Writer writer;
        writer.SetSHUOMode(true);
        writer.Transfer(Document);
        writer.Write(file.c_str());
    }

    Handle(TDocStd_Document) Document;
    Handle(XCAFDoc_ShapeTool) Shapes;
    Handle(XCAFDoc_ColorTool) Colors;

private:
    static TDF_Label named(TDF_Label const& label, char const* name)
    {
        TDataStd_Name::Set(label, name);
        return label;
    }
};

std::shared_ptr<ZELInstance> instanceNamed(ZELProductStructure const& model, std::wstring const& name)
{
    auto all = model.GetRootInstances();
    for (auto const& reference : model.GetReferences())
        all.insert(all.end(), reference->GetInstances().begin(), reference->GetInstances().end());
    for (auto const& instance : all)
        if (instance->GetInstanceName() == name) return instance;
    throw std::runtime_error("no such instance");
}

} // namespace

TEST(WrittenAssembly, SharedSubAssembliesAreOneReference)
{
    TemporaryFolder const folder;
    Writer writer;
    auto const bolt = writer.box("bolt", 1.0);
    auto const joint = writer.assembly("joint");
    writer.place(joint, bolt, "left bolt", moved(1, 0, 0));
    writer.place(joint, bolt, "right bolt", moved(5, 0, 0));
    auto const machine = writer.assembly("machine");
    gp_Trsf turned;
    turned.SetRotation(gp_Ax1({0, 0, 0}, {0, 0, 1}), M_PI / 2);
    turned.SetTranslationPart({1, 2, 3});
    writer.place(machine, joint, "joint A", moved(1, 0, 0));
    writer.place(machine, joint, "joint B", turned);
    writer.write(folder.path() / "machine.step");

    auto const read = ReadSupport::read(folder.path() / "machine.step");
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    EXPECT_EQ(read->model.GetProductName(), L"machine");
    EXPECT_EQ(read->model.GetRootInstancesCount(), 2u);
    EXPECT_EQ(read->model.GetReferences().size(), 2u);
    EXPECT_EQ(read->model.GetCounts().bodies, 1u);
    EXPECT_EQ(instanceNamed(read->model, L"joint A")->GetReference(),
              instanceNamed(read->model, L"joint B")->GetReference());
    // Row vectors: x turns to y, and the place stands in the last row.
    auto const& matrix = instanceNamed(read->model, L"joint B")->GetMatrix();
    Matrix const expected = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1};
    for (std::size_t i = 0; i < 16; ++i) EXPECT_NEAR(matrix[i], expected[i], 1e-5f) << i;
    EXPECT_NEAR(instanceNamed(read->model, L"right bolt")->GetMatrix()[12], 5.0f, 1e-5f);
}

TEST(WrittenAssembly, AColourOfAFaceStaysOverThatOfAnOccurrence)
{
    TemporaryFolder const folder;
    Writer writer;
    auto const plain = writer.box("plain", 1.0);
    auto const painted = writer.box("painted", 2.0);
    TopExp_Explorer const face(XCAFDoc_ShapeTool::GetShape(painted), TopAbs_FACE);
    writer.Colors->SetColor(face.Current(), Green, XCAFDoc_ColorSurf);
    auto const machine = writer.assembly("machine");
    writer.Colors->SetColor(writer.place(machine, plain, "red one", moved(1, 0, 0)), Red, XCAFDoc_ColorSurf);
    writer.place(machine, plain, "grey one", moved(5, 0, 0));
    writer.Colors->SetColor(writer.place(machine, painted, "painted one", moved(10, 0, 0)), Red,
                            XCAFDoc_ColorSurf);
    writer.write(folder.path() / "machine.step");

    auto const read = ReadSupport::read(folder.path() / "machine.step");
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    EXPECT_EQ(instanceNamed(read->model, L"red one")->GetColours().GetColour(), (Colour{255, 0, 0}));
    EXPECT_FALSE(instanceNamed(read->model, L"grey one")->GetColours().GetColour());
    EXPECT_FALSE(instanceNamed(read->model, L"painted one")->GetColours().GetColour());
    std::size_t green = 0;
    for (auto const& body : instanceNamed(read->model, L"painted one")->GetReference()->GetBodies())
        for (auto const& each : body.faces) green += each.colour == Colour{0, 255, 0};
    EXPECT_EQ(green, 1u);
}

TEST(WrittenAssembly, AColourInsideOneUseOfASubAssemblyStaysThere)
{
    TemporaryFolder const folder;
    Writer writer;
    auto const bolt = writer.box("bolt", 1.0);
    auto const joint = writer.assembly("joint");
    auto const left = writer.place(joint, bolt, "left bolt", moved(1, 0, 0));
    writer.place(joint, bolt, "right bolt", moved(5, 0, 0));
    auto const machine = writer.assembly("machine");
    auto const use = writer.place(machine, joint, "joint A", moved(1, 0, 0));
    writer.place(machine, joint, "joint B", moved(0, 9, 0));
    writer.Shapes->UpdateAssemblies();
    TDF_LabelSequence path;
    path.Append(use);
    path.Append(left);
    Handle(XCAFDoc_GraphNode) usage;
    ASSERT_TRUE(writer.Shapes->SetSHUO(path, usage));
    writer.Colors->SetColor(usage->Label(), Red, XCAFDoc_ColorSurf);
    writer.write(folder.path() / "machine.step");

    auto const read = ReadSupport::read(folder.path() / "machine.step");
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    auto const coloured = [&](std::wstring const& name) {
        std::size_t count = 0;
        for (auto const& instance : instanceNamed(read->model, name)->GetReference()->GetInstances()) {
            bool const isRed = instance->GetColours().GetColour() == Colour{255, 0, 0};
            EXPECT_TRUE(!isRed || instance->GetInstanceName() == L"left bolt");
            count += isRed;
        }
        return count;
    };
    EXPECT_EQ(coloured(L"joint A"), 1u);
    EXPECT_EQ(coloured(L"joint B"), 0u);
    EXPECT_EQ(read->model.GetCounts().bodies, 1u) << "the part is still shared";
}

TEST(WrittenAssembly, HiddenOccurrencesAreHidden)
{
    TemporaryFolder const folder;
    Writer writer;
    auto const part = writer.box("part", 1.0);
    auto const machine = writer.assembly("machine");
    auto const hidden = writer.place(machine, part, "hidden one", moved(1, 0, 0));
    writer.Colors->SetColor(hidden, Red, XCAFDoc_ColorSurf); // the writer needs a colour beside the flag
    writer.Colors->SetVisibility(hidden, false);
    writer.place(machine, part, "shown one", moved(5, 0, 0));
    writer.write(folder.path() / "machine.step");

    auto const read = ReadSupport::read(folder.path() / "machine.step");
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    bool flag = false;
    EXPECT_TRUE(instanceNamed(read->model, L"hidden one")->GetHidden(flag) && flag);
    flag = false;
    EXPECT_FALSE(instanceNamed(read->model, L"shown one")->GetHidden(flag) && flag);

    // Who does not want to hear of single uses sees all of them alike.
    ZelIO io;
    io.SetUseOccurrenceData(false);
    ZELProductStructure plain;
    ASSERT_TRUE(io.Read((folder.path() / "machine.step").wstring().c_str(), &plain, nullptr));
    for (auto const& instance : plain.GetRootInstances()) {
        flag = false;
        EXPECT_FALSE(instance->GetHidden(flag) && flag);
        EXPECT_FALSE(instance->GetColours().GetColour());
    }
}

TEST(WrittenAssembly, AnUnrelatedPartDoesNotChangeTheIdsOfOthers)
{
    // Entity numbers move when a file is written anew; inside one file only what stands there counts.
    TemporaryFolder const folder;
    Writer writer;
    auto const machine = writer.assembly("machine");
    writer.place(machine, writer.box("first", 1.0), "first one", moved(1, 0, 0));
    writer.place(machine, writer.box("second", 2.0), "second one", moved(5, 0, 0));
    writer.write(folder.path() / "machine.step");
    auto const whole = ReadSupport::read(folder.path() / "machine.step");

    // The first part loses a face: ids of the second must stay.
    auto text = bytesOf(folder.path() / "machine.step");
    auto const shell = text.find("CLOSED_SHELL(''");
    ASSERT_NE(shell, std::string::npos);
    auto const comma = text.find(',', text.find("(#", shell));
    text.erase(text.find("(#", shell) + 1, comma - text.find("(#", shell));
    auto const less = ReadSupport::read(folder.write("less.step", text));
    ASSERT_EQ(less->result.outcome, IoOutcome::Done);
    auto const& before = instanceNamed(whole->model, L"second one")->GetReference()->GetBodies().at(0);
    auto const& after = instanceNamed(less->model, L"second one")->GetReference()->GetBodies().at(0);
    EXPECT_EQ(before.faces, after.faces);
    EXPECT_EQ(before.edges, after.edges);
    EXPECT_EQ(before.id, after.id);
    EXPECT_EQ(instanceNamed(less->model, L"first one")->GetReference()->GetCounts().faces, 5u);
}

TEST(WrittenAssembly, NamesInTheChineseEncodingAreRead)
{
    TemporaryFolder const folder;
    Writer writer;
    writer.box("GBKNAME", 1.0);
    writer.write(folder.path() / "part.step");
    auto text = bytesOf(folder.path() / "part.step");
    for (auto at = text.find("GBKNAME"); at != std::string::npos; at = text.find("GBKNAME"))
        text.replace(at, 7, "\xC1\xE3\xBC\xFE");
    auto const read = ReadSupport::read(folder.write("gbk.step", text));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    EXPECT_EQ(read->model.GetReferences().at(0)->GetReferenceName(), L"\u96F6\u4EF6");
}
