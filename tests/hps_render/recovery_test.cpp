// What pictures survive: the loss of the device, too little of its memory, edits elsewhere of what they show.
#include "Device.h"
#include "MeshStore.h"
#include "scenes.h"

namespace HPS
{
namespace
{

class Warnings : public EventHandler
{
public:
    Warnings() { Database::GetEventDispatcher().Subscribe(*this, WarningEvent().GetClassID()); }
    ~Warnings() override { Database::GetEventDispatcher().UnSubscribe(*this, WarningEvent().GetClassID()); }
    HandleResult Handle(Event const* event) override
    {
        texts.push_back(static_cast<WarningEvent const*>(event)->message);
        return HandleResult::Handled;
    }
    std::vector<UTF8> texts;
};

class Recovery : public ScenePictures
{
protected:
    // Something of every store on the device: faces, lines, letters, a texture, what is cut.
    void fill()
    {
        colour(root, {1, 0, 0, 1});
        insertSquare(root);
        root.InsertLine(Point(-1.5f, -1.5f, 0), Point(1.5f, 1.5f, 0));
        root.InsertText({-1.5f, 1.2f, 0}, "lost");
        ByteArray const bytes{0, 0, 255, 255, 255, 0, 255, 255, 0, 0, 0, 255};
        ImageKit image;
        image.SetSize(2, 2).SetFormat(Image::Format::RGB).SetData(bytes);
        PortfolioKey portfolio = model.GetPortfolioKey();
        view.GetSegmentKey().GetPortfolioControl().Push(portfolio);
        portfolio.DefineTexture("checks", portfolio.DefineImage("checks", image), TextureOptionsKit());
        SegmentKey textured = root.Subsegment("textured");
        insertSquare(textured, 0.5f, 0.4f);
        textured.GetMaterialMappingControl().SetFaceTexture("checks");
        SegmentKey cut = root.Subsegment("cut");
        insertSquare(cut, 0.7f, 0.3f);
        cut.InsertCuttingSection(Plane(1, 0, 0, 0));
    }
};

TEST_F(Recovery, PicturesAreTheSameAfterTheDeviceIsLost)
{
    fill();
    Canvas second = Factory::CreateOffScreenCanvas(60, 40);
    second.AttachViewAsLayout(view);
    Warnings warnings;
    render::Image const before = picture(), other = picture(second);
    for (int times = 1; times <= 2; ++times) {
        render::Device::instance().lose();
        EXPECT_EQ(difference(picture(), before), 0);
        EXPECT_EQ(difference(picture(second), other), 0) << "shares the device";
        EXPECT_EQ(warnings.texts.size(), std::size_t(times));
    }
    colour(root, {0, 1, 0, 1});
    EXPECT_EQ(picture().at(25, 45), green) << "edits are followed from then on";
    second.Delete();
}

TEST_F(Recovery, WhatTheDevicesMemoryHoldsIsDrawnWithAWarning)
{
    insertSquare(root.Subsegment("first"));
    colour(root, {1, 0, 0, 1});
    picture();
    Warnings warnings;
    render::MeshStore::instance().limit(0);
    SegmentKey tooMuch = root.Subsegment("second");
    std::vector<Point> points;
    std::vector<int> faces;
    for (int i = 0; i < 30'000; ++i) {
        points.insert(points.end(), {{-1, -1, 1}, {1, -1, 1}, {1, 1, 1}});
        faces.insert(faces.end(), {3, 3 * i, 3 * i + 1, 3 * i + 2});
    }
    tooMuch.InsertShell(points, faces);
    colour(tooMuch, {0, 1, 0, 1});
    EXPECT_EQ(picture().at(40, 40), red);
    picture(canvas, Window::UpdateType::Complete);
    ASSERT_EQ(warnings.texts.size(), 1u) << "told once";
    EXPECT_NE(std::string(warnings.texts[0].GetBytes()).find("memory"), std::string::npos);
    render::MeshStore::instance().limit(~std::uint64_t(0));
}

TEST_F(Recovery, AnEditOfWhatAReferenceShowsIsSeenThroughIt)
{
    SegmentKey elsewhere = Database::CreateRootSegment();
    ShellKey target = insertSquare(elsewhere, 0, 0.3f);
    root.ReferenceGeometry(target);
    colour(root, {1, 0, 0, 1});
    EXPECT_EQ(picture().at(40, 40), red);
    EXPECT_EQ(picture().at(60, 40), black);
    ShellKit kit;
    kit.SetPoints({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}).SetFacelist({4, 0, 1, 2, 3});
    ASSERT_TRUE(target.Consume(kit));
    EXPECT_EQ(picture().at(55, 40), red);
    target.Delete();
    EXPECT_EQ(picture().at(40, 40), black);
    elsewhere.Delete();
}

} // namespace
} // namespace HPS
