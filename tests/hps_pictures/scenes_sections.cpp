// Bodies that planes cut.
#include "Stage.h"

using namespace HPS;

namespace
{

RGBAColor const red(0.8f, 0.25f, 0.2f), blue(0.2f, 0.45f, 0.8f), yellow(0.9f, 0.8f, 0.2f);

void showCuts(Stage& stage)
{
    stage.viewSegment().GetVisibilityControl().SetCutGeometry(true);
    stage.viewSegment().GetMaterialMappingControl().SetCutFaceColor(yellow);
    stage.viewSegment().GetCuttingSectionAttributeControl().SetEdgeWeight(2, Line::SizeUnits::Pixels);
}

/// A ball within a box, and a box that is open at its ends.
void bodies(SegmentKey root)
{
    SegmentKey ball = root.Subsegment("ball"), box = root.Subsegment("box"), open = root.Subsegment("open");
    ball.GetMaterialMappingControl().SetFaceColor(red);
    box.GetMaterialMappingControl().SetFaceColor(blue);
    open.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.3f, 0.7f, 0.35f));
    insertBall(ball, {-0.95f, 0, 0}, 0.85f);
    insertBox(box, {0, -0.7f, -0.7f}, {0.75f, 0.7f, 0.7f});
    ShellKey tube = insertBox(open, {0.95f, -0.7f, -0.7f}, {1.7f, 0.7f, 0.7f});
    ShellKit kit;
    tube.Show(kit);
    std::vector<int> faces;
    kit.ShowFacelist(faces);
    faces.resize(20); // without the faces at the ends of x
    kit.SetFacelist(faces);
    tube.Consume(kit);
}

/// Slanting lines on the caps.
void hatch(Stage& stage)
{
    constexpr unsigned side = 16;
    ByteArray bytes;
    for (unsigned y = 0; y < side; ++y)
        for (unsigned x = 0; x < side; ++x)
            for (int channel = 0; channel < 3; ++channel)
                bytes.push_back((x + y) % side < 4 ? byte(40) : byte(230));
    ImageKit image;
    image.SetSize(side, side).SetFormat(Image::Format::RGB).SetData(bytes);
    PortfolioKey portfolio = stage.model.GetPortfolioKey();
    stage.viewSegment().GetPortfolioControl().Push(portfolio);
    portfolio.DefineTexture("hatch", portfolio.DefineImage("hatch", image), TextureOptionsKit());
    stage.viewSegment().GetMaterialMappingControl().SetCutFaceTexture("hatch");
}

/// As the case's words say: which planes, in one section or in several.
void cutBodies(Stage& stage)
{
    stage.light();
    stage.look({4, 5, 10}, 3.2f);
    showCuts(stage);
    bodies(stage.root());
    if (stage.has("corner")) {
        CuttingSectionKit kit;
        kit.SetPlanes({Plane(0, 1, 0, -0.1f), Plane(0, 0, 1, -0.1f)});
        stage.root().InsertCuttingSection(kit);
    } else if (stage.has("row")) {
        stage.root().InsertCuttingSection(Plane(0, 1, 0, -0.3f));
        stage.root().InsertCuttingSection(Plane(0, 0, 1, -0.3f));
    } else {
        stage.root().InsertCuttingSection(Plane(0.2f, 1, 0.3f, -0.1f));
    }
    if (stage.has("own"))
        stage.viewSegment().GetCuttingSectionAttributeControl().SetMaterialPreference(
            CuttingSection::MaterialPreference::Implicit);
    if (stage.has("hatched")) hatch(stage);
    if (stage.has("lines")) stage.viewSegment().GetVisibilityControl().SetEdges(true);
}

/// One part, shown as it is, mirrored, stretched and turned.
void cutInstances(Stage& stage)
{
    stage.light();
    stage.look({3, 6, 10}, 4);
    showCuts(stage);
    SegmentKey part = stage.model.GetLibraryKey().Subsegment("part");
    insertBox(part, {0, -0.4f, -0.4f}, {0.9f, 0.4f, 0.4f});
    insertBall(part, {0.9f, 0, 0}, 0.6f);
    auto place = [&](auto const& put) {
        SegmentKey segment = stage.root().Subsegment();
        segment.IncludeSegment(part);
        put(segment.GetModellingMatrixControl());
    };
    place([](ModellingMatrixControl m) { m.Translate(0.3, 0, 0); });
    place([](ModellingMatrixControl m) { m.Scale(-1, 1, 1).Translate(-0.3, 0, 0); });
    place([](ModellingMatrixControl m) { m.Scale(1, 0.5, 1).Translate(0.3, 0.1, -1.4); });
    place([](ModellingMatrixControl m) { m.Rotate(40, 0, 0).Scale(-1, 1, 1).Translate(-0.3, 0.1, -1.4); });
    stage.root().InsertCuttingSection(Plane(0, 1, 0.1f, -0.05f));
}

/// A body whose faces lie in segments of their own is closed as a tree.
void cutTree(Stage& stage)
{
    stage.light();
    stage.look({4, 5, 10}, 2.4f);
    showCuts(stage);
    SegmentKey body = stage.root().Subsegment("body");
    body.GetCuttingSectionAttributeControl()
        .SetCappingLevel(CuttingSection::CappingLevel::SegmentTree)
        .SetMaterialPreference(CuttingSection::MaterialPreference::Implicit);
    std::vector<Point> corners;
    for (int i = 0; i < 8; ++i)
        corners.emplace_back((i & 1) != 0 ? 0.8f : -0.8f, (i & 2) != 0 ? 0.8f : -0.8f,
                             (i & 4) != 0 ? 0.8f : -0.8f);
    std::vector<std::vector<int>> const faces{{4, 0, 2, 3, 1}, {4, 4, 5, 7, 6}, {4, 0, 1, 5, 4},
                                              {4, 2, 6, 7, 3}, {4, 0, 4, 6, 2}, {4, 1, 3, 7, 5}};
    for (std::size_t i = 0; i < faces.size(); ++i) {
        SegmentKey segment = body.Subsegment(i % 2 != 0 ? "odd" : "even");
        segment.GetMaterialMappingControl().SetFaceColor(i % 2 != 0 ? blue : red);
        segment.InsertShell(corners, faces[i]);
    }
    stage.root().InsertCuttingSection(Plane(0.4f, 1, 0.2f, -0.1f));
}

/// The planes themselves.
void planesShown(Stage& stage)
{
    stage.light();
    stage.look({4, 5, 10}, 4);
    showCuts(stage);
    bodies(stage.root());
    CuttingSectionKit square, disc;
    square.SetPlanes(Plane(0, 1, 0, -0.2f));
    square.SetVisualization(CuttingSection::Mode::Square, RGBAColor(0.3f, 0.8f, 1, 0.3f), 0.7f);
    disc.SetPlanes(Plane(1, 0, 0, -1.3f));
    disc.SetVisualization(CuttingSection::Mode::Round, RGBAColor(1, 0.5f, 0.3f, 0.4f), 0.5f);
    stage.root().InsertCuttingSection(square);
    stage.root().InsertCuttingSection(disc);
}

SceneTable const table{
    {"cut", cutBodies}, {"cut_instances", cutInstances}, {"cut_tree", cutTree}, {"cut_planes", planesShown}};

} // namespace
