// What can be said of lights and of what surfaces do to light without a stored picture.
#include "painted.h"
#include <gtest/gtest.h>
#include <set>

using namespace HPS;

namespace
{

QColor at(QImage const& picture, float x, float y)
{
    return picture.pixelColor(int(100 + 50 * x), int(75 - 50 * y));
}

/// A floor of 4 by 3 that faces the viewer, without a light.
struct Floor : Stage {
    Floor()
    {
        root().GetMaterialMappingControl().SetFaceColor(RGBAColor(0.3f, 0.3f, 0.3f));
        insertRectangle(root(), {0, 0, 0}, 4, 3);
    }
    SpotlightKey spot(RGBAColor const& colour, float outer, float inner,
                      Spotlight::OuterConeUnits units = Spotlight::OuterConeUnits::Degrees)
    {
        SpotlightKit light;
        light.SetPosition({0, 0, 2}).SetTarget({0, 0, 0}).SetColor(colour);
        light.SetOuterCone(outer, units).SetInnerCone(inner);
        return root().InsertSpotlight(light);
    }
    int brightness(float x, float y) { return at(picture(), x, y).lightness(); }
};

class Warnings : public EventHandler
{
public:
    Warnings() { Database::GetEventDispatcher().Subscribe(*this, WarningEvent().GetClassID()); }
    HandleResult Handle(Event const*) override
    {
        ++count;
        return HandleResult::Handled;
    }
    int count = 0;
};

} // namespace

TEST(Spotlights, endAtTheirOuterCone)
{
    Floor floor;
    floor.spot({1, 1, 1}, 20, 19); // a radius of 2 tan 20° = 0.728 on the floor
    QImage const picture = floor.picture();
    int const inside = at(picture, 0.62f, 0).lightness(), outside = at(picture, 0.8f, 0).lightness();
    EXPECT_GT(inside, outside + 40);
    EXPECT_EQ(outside, at(picture, 1.5f, 1.2f).lightness());
    EXPECT_GT(at(picture, 0, -0.62f).lightness(), outside + 40);
}

TEST(Spotlights, takeTheirConesInOtherUnits)
{
    Floor floor;
    SpotlightKey key = floor.spot({1, 1, 1}, 0.5f, 0.45f, Spotlight::OuterConeUnits::FieldRadius);
    key.SetInnerCone(90, Spotlight::InnerConeUnits::Percent);
    QImage const picture = floor.picture();
    EXPECT_GT(at(picture, 0.42f, 0).lightness(), at(picture, 0.56f, 0).lightness() + 40);
    EXPECT_EQ(at(picture, 0.56f, 0).lightness(), at(picture, 1.8f, 0).lightness());
}

TEST(Spotlights, fadeFromInnerToOuterConeAndByConcentration)
{
    Floor floor;
    SpotlightKey key = floor.spot({1, 1, 1}, 35, 10);
    QImage const wide = floor.picture();
    EXPECT_GT(at(wide, 0.2f, 0).lightness(), at(wide, 0.8f, 0).lightness() + 10);
    EXPECT_GT(at(wide, 0.8f, 0).lightness(), at(wide, 1.2f, 0).lightness() + 10);
    key.SetInnerCone(35).SetConcentration(40);
    QImage const narrow = floor.picture();
    EXPECT_GT(at(narrow, 0, 0).lightness(), at(narrow, 0.9f, 0).lightness() + 40);
}

TEST(Spotlights, standOnTheCameraIfTheyAreRelativeToIt)
{
    Floor floor;
    SpotlightKit light; // from the eye, towards what it looks at, to the left
    light.SetPosition({0, 0, 0}).SetTarget({-1, 0, -10}).SetColor(RGBAColor(1, 1, 1)).SetCameraRelative(true);
    light.SetOuterCone(3).SetInnerCone(2);
    floor.root().InsertSpotlight(light);
    QImage const picture = floor.picture();
    EXPECT_GT(at(picture, -1, 0).lightness(), at(picture, 0, 0).lightness() + 40);
    EXPECT_EQ(at(picture, 1, 0).lightness(), at(picture, 0, 0).lightness());
}

TEST(Lights, takeColoursFromTheirSegmentAndFromThePalette)
{
    Floor floor;
    floor.root().GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 1, 1));
    SegmentKey lamps = floor.root().Subsegment();
    lamps.GetMaterialMappingControl().SetLightColor(RGBAColor(0.3f, 0, 0));
    DistantLightKit light;
    light.SetDirection({0, -0.9f, -0.1f});
    lamps.InsertDistantLight(light);
    QColor const red = at(floor.picture(), 1, 1);
    EXPECT_GT(red.red(), red.green());
    PortfolioKey portfolio = Database::CreatePortfolio();
    MaterialKit blue;
    blue.SetDiffuse(RGBAColor(0, 0, 0.4f));
    portfolio.DefineMaterialPalette("lamps", {MaterialKit(), blue});
    lamps.GetPortfolioControl().Push(portfolio).SetMaterialPalette("lamps");
    lamps.GetMaterialMappingControl().SetLightMaterialByIndex(1);
    QColor const lit = at(floor.picture(), 1, 1);
    EXPECT_GT(lit.blue(), lit.red());
}

TEST(Lights, addUpToSixteenAndWarnBeyond)
{
    Floor floor;
    auto add = [&] {
        DistantLightKit light; // at a slant, so that no highlight meets the eye
        light.SetDirection({1, 0, -0.1f}).SetColor(RGBAColor(0.2f, 0.2f, 0.2f));
        floor.root().InsertDistantLight(light);
    };
    Warnings warnings;
    int last = 0;
    for (int i = 0; i < 16; ++i) {
        add();
        int const now = floor.brightness(1, 1);
        if (i > 0) {
            EXPECT_GT(now, last) << i;
        }
        last = now;
    }
    EXPECT_EQ(warnings.count, 0);
    add();
    EXPECT_EQ(floor.brightness(1, 1), last);
    EXPECT_EQ(warnings.count, 1);
    add();
    floor.picture();
    EXPECT_EQ(warnings.count, 1);
}

TEST(Lights, hideWithTheVisibilityOfFaceLights)
{
    Floor floor;
    int const plain = floor.brightness(0, 0);
    SegmentKey lamps = floor.root().Subsegment();
    SpotlightKit light;
    light.SetPosition({0, 0, 2}).SetTarget({0, 0, 0}).SetColor(RGBAColor(1, 1, 1));
    lamps.InsertSpotlight(light);
    EXPECT_GT(floor.brightness(0, 0), plain + 40);
    lamps.GetVisibilityControl().SetFaceLights(false);
    EXPECT_EQ(floor.brightness(0, 0), plain);
}

TEST(AmbientLight, takesThePlaceOfSkyAndGround)
{
    Stage stage;
    stage.root().GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 1, 1));
    insertBall(stage.root(), {0, 0, 0}, 1.2f);
    stage.root().GetMaterialMappingControl().SetAmbientLightUpColor(RGBAColor(0, 0, 1));
    stage.root().GetMaterialMappingControl().SetAmbientLightDownColor(RGBAColor(1, 0, 0));
    QImage const picture = stage.picture();
    EXPECT_GT(at(picture, 0, 1).blue(), 180);
    EXPECT_LT(at(picture, 0, 1).red(), 75);
    EXPECT_GT(at(picture, 0, -1).red(), 180);
    EXPECT_NEAR(at(picture, 0, 0).red(), at(picture, 0, 0).blue(), 10);
}

namespace
{

/// A mirror in the middle that lies in a room with another colour on each side.
struct Room : Stage {
    Room() : paints(*this)
    {
        CubeMapImages images{paints.image("right", {"r"}),  paints.image("left", {"g"}),
                             paints.image("above", {"c"}),  paints.image("below", {"y"}),
                             paints.image("before", {"m"}), paints.image("behind", {"b"})};
        paints.portfolio().DefineCubeMap("room", images, TextureOptionsKit());
        MaterialKit mirror;
        mirror.SetDiffuse(RGBAColor(0, 0, 0)).SetMirror(RGBAColor(1, 1, 1)).SetEnvironmentCubeMap("room");
        root().GetMaterialMappingControl().SetFaceMaterial(mirror);
        insertRectangle(root(), {0, 0, 0}, 1, 1);
    }
    /// What the mirror shows when it is turned about x, then y, in degrees.
    QColor seen(float x, float y)
    {
        root().SetModellingMatrix(MatrixKit().Rotate(x, y, 0));
        return at(picture(), 0, 0);
    }
    Paints paints;
};

} // namespace

TEST(Surroundings, areReflectedFromTheRightSide)
{
    Room room;
    EXPECT_EQ(room.seen(0, 0), QColor(0, 0, 255)); // the viewer sees what is behind him
    EXPECT_EQ(room.seen(0, 45), QColor(255, 0, 0));
    EXPECT_EQ(room.seen(0, -45), QColor(0, 255, 0));
    EXPECT_EQ(room.seen(-45, 0), QColor(0, 255, 255));
    EXPECT_EQ(room.seen(45, 0), QColor(255, 255, 0));
}

TEST(Surroundings, mixWithTheSurfaceByTheMirrorChannelAndTakeAColour)
{
    Room room;
    MaterialKit half;
    half.SetDiffuse(RGBAColor(1, 0, 0)).SetMirror(RGBAColor(0.5f, 0.5f, 0.5f));
    half.SetEnvironmentCubeMap("room", RGBAColor(0, 0, 0.5f));
    room.root().GetMaterialMappingControl().SetFaceMaterial(half);
    QColor const mixed = room.seen(0, 0);
    EXPECT_NEAR(mixed.red(), 128, 2);
    EXPECT_NEAR(mixed.blue(), 64, 2);
    MaterialKit without;
    without.SetEnvironmentCubeMap();
    room.root().GetMaterialMappingControl().SetFaceMaterial(without);
    EXPECT_NEAR(room.seen(0, 0).blue(), 128, 110); // a plain sky
    EXPECT_EQ(room.seen(0, 0).saturation() > 0, true);
}

TEST(Surroundings, comeFromAPanoramaToo)
{
    Room room;
    // Behind, left, before, right, behind, as one turns to the right.
    room.paints.texture("panorama", {"bbggmmmmrrbb"}, Paints::exact());
    MaterialKit mirror;
    mirror.SetDiffuse(RGBAColor(0, 0, 0)).SetMirror(RGBAColor(1, 1, 1)).SetEnvironmentTexture("panorama");
    room.root().GetMaterialMappingControl().SetFaceMaterial(mirror);
    EXPECT_EQ(room.seen(0, 0), QColor(0, 0, 255));
    EXPECT_EQ(room.seen(0, 50), QColor(255, 0, 0));
    EXPECT_EQ(room.seen(0, -50), QColor(0, 255, 0));
}

TEST(Bumps, leanTowardsTheLight)
{
    for (char const* kind : {"heights", "normals"}) {
        Stage stage;
        Paints paints(stage);
        ImageKit kit;
        ByteArray bytes;
        bool const normals = std::string(kind) == "normals";
        // A ridge along v, or normals that lean to the left of it and to the right.
        for (int i = 0; i < 16; ++i) {
            int const height = 255 - 30 * std::abs(i - 8);
            byte const lean = i < 8 ? 60 : 195;
            if (normals)
                bytes.insert(bytes.end(), {lean, 128, 235});
            else
                bytes.insert(bytes.end(), 3, byte(height));
        }
        kit.SetSize(16, 1).SetFormat(Image::Format::RGB).SetData(std::move(bytes));
        paints.portfolio().DefineTexture("bumps", paints.portfolio().DefineImage("bumps", kit),
                                         TextureOptionsKit());
        MaterialKit material;
        material.SetDiffuse(RGBAColor(0.5f, 0.5f, 0.5f)).SetSpecular(RGBAColor(0, 0, 0)).SetBump("bumps");
        stage.root().GetMaterialMappingControl().SetFaceMaterial(material);
        DistantLightKit light; // from the left
        light.SetDirection({1, 0, -1}).SetColor(RGBAColor(0.6f, 0.6f, 0.6f));
        stage.root().InsertDistantLight(light);
        stage.root().InsertShell(parametrised({0, 0, 0}, 2, 2, 0, 1));
        QImage const picture = stage.picture();
        EXPECT_GT(at(picture, -0.5f, 0).lightness(), at(picture, 0.5f, 0).lightness() + 30) << kind;
    }
}

TEST(Highlights, dependOnSpecularAndGloss)
{
    auto ball = [](MaterialKit material) {
        Stage stage;
        DistantLightKit light;
        light.SetDirection({0, 0, -1}).SetColor(RGBAColor(0.5f, 0.5f, 0.5f));
        stage.root().InsertDistantLight(light);
        material.SetDiffuse(RGBAColor(0.2f, 0.2f, 0.2f));
        stage.root().GetMaterialMappingControl().SetFaceMaterial(material);
        insertBall(stage.root(), {0, 0, 0}, 1.2f, 48);
        return stage.picture();
    };
    QImage const none = ball(MaterialKit().SetSpecular(RGBAColor(0, 0, 0)));
    QImage const wide = ball(MaterialKit().SetSpecular(RGBAColor(1, 0, 0)).SetGloss(2));
    QImage const sharp = ball(MaterialKit().SetSpecular(RGBAColor(1, 0, 0)).SetGloss(30));
    EXPECT_GT(at(wide, 0, 0).red(), at(none, 0, 0).red() + 80);
    EXPECT_EQ(at(wide, 0, 0).green(), at(none, 0, 0).green());
    EXPECT_GT(at(wide, 0.7f, 0).red(), at(none, 0.7f, 0).red() + 20);
    EXPECT_LE(at(sharp, 0.7f, 0).red(), at(none, 0.7f, 0).red() + 2);
    EXPECT_NEAR(at(sharp, 0, 0).red(), at(wide, 0, 0).red(), 10);
}

TEST(LightInterpolation, isPerPixelPerCornerOrPerTriangle)
{
    using enum Lighting::InterpolationAlgorithm;
    auto ball = [](Lighting::InterpolationAlgorithm how) {
        Stage stage;
        stage.light();
        stage.root().GetLightingAttributeControl().SetInterpolationAlgorithm(how);
        stage.root().GetMaterialMappingControl().SetFaceColor(RGBAColor(0.5f, 0.5f, 0.5f));
        insertBall(stage.root(), {0, 0, 0}, 1.3f, 12);
        return stage.picture();
    };
    auto shades = [](QImage const& picture) { // along a line across the ball
        std::set<QRgb> all;
        for (int x = 50; x < 150; ++x) all.insert(picture.pixel(x, 60));
        return all.size();
    };
    auto brightest = [](QImage const& picture) {
        int most = 0;
        for (int x = 50; x < 150; ++x)
            for (int y = 25; y < 125; ++y) most = std::max(most, picture.pixelColor(x, y).lightness());
        return most;
    };
    QImage const phong = ball(Phong), gouraud = ball(Gouraud), flat = ball(Flat);
    EXPECT_LT(shades(flat), 20u);
    EXPECT_GT(shades(gouraud), 40u);
    EXPECT_GT(shades(phong), 40u);
    EXPECT_GT(brightest(phong), brightest(gouraud) + 5); // corners miss the middle of the highlight
}
