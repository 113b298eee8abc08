// Materials, textures and lights.
#include "painted.h"
#include <array>
#include <cmath>

using namespace HPS;
using Parameterization = Material::Texture::Parameterization;

namespace
{

std::vector<std::string> const numbered{"rrrrkkkkgggg", "rwwrkkkkgwwg", "rwwrkkkkgwwg", "rrrrkkkkgggg",
                                        "kkkkyyyykkkk", "kkkkywwykkkk", "kkkkywwykkkk", "kkkkyyyykkkk",
                                        "bbbbkkkkmmmm", "bwwbkkkkmwwm", "bwwbkkkkmwwm", "bbbbkkkkmmmm"};

struct NamedSource {
    std::string_view name;
    Parameterization source;
};
constexpr std::array sources{
    NamedSource{"uv", Parameterization::UV},
    NamedSource{"natural", Parameterization::NaturalUV},
    NamedSource{"object", Parameterization::Object},
    NamedSource{"world", Parameterization::World},
    NamedSource{"normal", Parameterization::SurfaceNormal},
    NamedSource{"reflection", Parameterization::ReflectionVector},
    NamedSource{"physical", Parameterization::PhysicalReflection},
    NamedSource{"sphere", Parameterization::Sphere},
    NamedSource{"cylinder", Parameterization::Cylinder},
};

/// A ball and a turned box with one image by the source that the argument names.
void projected(Stage& stage)
{
    stage.light();
    Paints paints(stage);
    TextureOptionsKit options;
    for (auto const& [name, source] : sources)
        if (stage.value("source") == name) options.SetParameterizationSource(source);
    paints.texture("squares", numbered, options);
    SegmentKey ball = stage.root().Subsegment("ball"), box = stage.root().Subsegment("box");
    for (SegmentKey const& each : {ball, box}) each.GetMaterialMappingControl().SetFaceTexture("squares");
    insertBall(ball, {-0.9f, 0, 0}, 0.85f);
    insertBox(box, {-0.6f, -0.6f, -0.6f}, {0.6f, 0.6f, 0.6f});
    box.GetModellingMatrixControl().Rotate(25, 35, 0).Translate(0.95, 0, 0);
}

/// Rows of balls, each with another channel.
void channels(Stage& stage)
{
    stage.light();
    stage.look({0, 0, 10}, 3, true);
    Paints paints(stage);
    paints.texture("stripes", {"wk", "wk"}, Paints::exact().SetTransformMatrix(MatrixKit().Scale(8, 1, 1)));
    ImageDefinition const sides[] = {paints.image("right", {"r"}),  paints.image("left", {"g"}),
                                     paints.image("above", {"c"}),  paints.image("below", {"y"}),
                                     paints.image("before", {"m"}), paints.image("behind", {"b"})};
    CubeMapImages images;
    std::copy(std::begin(sides), std::end(sides), images.begin());
    paints.portfolio().DefineCubeMap("room", images, TextureOptionsKit());
    paints.texture("panorama", {"ccccbbbb", "yrgmyrgm"}, TextureOptionsKit());

    std::vector<MaterialKit> kits(12);
    for (MaterialKit& kit : kits) kit.SetDiffuse(RGBAColor(0.6f, 0.3f, 0.2f));
    kits[1].SetSpecular(RGBAColor(1, 1, 1)).SetGloss(30);
    kits[2].SetSpecular(RGBAColor(0.2f, 0.9f, 0.2f)).SetGloss(2);
    kits[3].SetSpecular("stripes").SetGloss(8);
    kits[4].SetEmission(RGBAColor(0, 0.2f, 0.5f));
    kits[5].SetEmission("stripes", RGBAColor(0.6f, 0.6f, 0));
    kits[6].SetMirror(RGBAColor(0.7f, 0.7f, 0.7f));
    kits[7].SetEnvironmentCubeMap("room");
    kits[8].SetEnvironmentTexture("panorama", RGBAColor(0.8f, 0.8f, 0.8f)).SetMirror(RGBAColor(1, 1, 1));
    kits[9].SetBump("stripes");
    kits[10].SetTransmission("stripes");
    kits[11].SetDiffuseTexture("stripes", RGBAColor(0.4f, 1, 1)).SetMirror("stripes");
    for (std::size_t i = 0; i < kits.size(); ++i) {
        SegmentKey place = stage.root().Subsegment();
        place.GetMaterialMappingControl().SetFaceMaterial(kits[i]);
        ShellKit ball;
        ShellKey key =
            insertBall(place, {-1.45f + 0.96f * float(i % 4), 0.95f - 0.95f * float(i / 4), 0}, 0.42f);
        key.Show(ball);
        std::vector<Point> points;
        ball.ShowPoints(points);
        std::vector<float> parameters;
        for (std::size_t p = 0; p < points.size(); ++p) {
            parameters.push_back(float(p % 24) / 12);
            parameters.push_back(float(p / 24) / 12);
        }
        key.Delete();
        ball.SetVertexParametersByRange(0, parameters);
        place.InsertShell(ball);
    }
}

/// Two cones of light and a wide one on a floor, with a ball in the middle.
void spots(Stage& stage)
{
    stage.look({0, 5, 10});
    insertRectangle(stage.root(), {0, 0, -0.5f}, 4, 3);
    insertBall(stage.root(), {0, 0, 0}, 0.5f);
    auto shine = [&](Point const& from, Point const& to, RGBAColor const& c, float outer, float inner) {
        SpotlightKit light;
        light.SetPosition(from).SetTarget(to).SetColor(c);
        light.SetOuterCone(outer).SetInnerCone(inner);
        stage.root().InsertSpotlight(light);
    };
    shine({-1, 0, 2}, {-1, 0, -0.5f}, {1, 0.3f, 0.2f}, 15, 14);
    shine({1.2f, 0, 2}, {1, 0, -0.5f}, {0.2f, 0.4f, 1}, 25, 5);
    shine({0, 3, 3}, {0, 0, 0}, {0.2f, 0.3f, 0.2f}, 30, 20);
}

/// A coarse ball with a strong highlight.
void interpolation(Stage& stage)
{
    stage.light();
    using enum Lighting::InterpolationAlgorithm;
    std::string const how = stage.value("how");
    stage.root().GetLightingAttributeControl().SetInterpolationAlgorithm(how == "flat"      ? Flat
                                                                         : how == "gouraud" ? Gouraud
                                                                                            : Phong);
    MaterialKit kit;
    kit.SetDiffuse(RGBAColor(0.2f, 0.5f, 0.7f)).SetSpecular(RGBAColor(1, 1, 1)).SetGloss(12);
    stage.root().GetMaterialMappingControl().SetFaceMaterial(kit);
    insertBall(stage.root(), {0, 0, 0}, 1.3f, 12);
}

void rainbow(Stage& stage)
{
    Paints paints(stage);
    std::vector<MaterialKit> palette(5);
    for (std::size_t i = 0; i < palette.size(); ++i) palette[i].SetDiffuse(Paints::colourOf("bcgyr"[i]));
    paints.portfolio().DefineMaterialPalette("rainbow", palette);
    stage.root().GetPortfolioControl().SetMaterialPalette("rainbow");
    stage.root()
        .GetColorInterpolationControl()
        .SetFaceColor(stage.has("colours"))
        .SetFaceIndex(stage.has("indices"));
    ShellKit kit = parametrised({0, 0.6f, 0}, 3.6f, 1, 0, 1);
    kit.SetVertexIndexColorsByRange(0, {0, 4, 4, 0});
    stage.root().InsertShell(kit);
    ShellKit faces;
    faces.SetPoints({{-1.8f, -1.2f, 0},
                     {-0.6f, -1.2f, 0},
                     {0.6f, -1.2f, 0},
                     {1.8f, -1.2f, 0},
                     {-1.8f, -0.2f, 0},
                     {-0.6f, -0.2f, 0},
                     {0.6f, -0.2f, 0},
                     {1.8f, -0.2f, 0}});
    faces.SetFacelist({4, 0, 1, 5, 4, 4, 1, 2, 6, 5, 4, 2, 3, 7, 6});
    faces.SetFaceIndexColorsByRange(0, {4, 1.5f, 3});
    stage.root().InsertShell(faces);
}

/// Six sides of a box without one, red outside and striped within.
void sides(Stage& stage)
{
    stage.light();
    stage.look({3, 4, 10});
    Paints paints(stage);
    paints.texture("stripes", {"wb", "wb"}, Paints::exact());
    MaterialKit inside;
    inside.SetDiffuseTexture("stripes");
    stage.root().GetMaterialMappingControl().SetFrontFaceColor(RGBAColor(0.8f, 0.2f, 0.2f));
    stage.root().GetMaterialMappingControl().SetBackFaceMaterial(inside);
    stage.root().InsertShell(
        {{-1, -1, -1}, {1, -1, -1}, {-1, 1, -1}, {1, 1, -1}, {-1, -1, 1}, {1, -1, 1}, {-1, 1, 1}, {1, 1, 1}},
        {4, 0, 2, 3, 1, 4, 0, 1, 5, 4, 4, 0, 4, 6, 2, 4, 1, 3, 7, 5});
}

/// Layers on top of each other, one of them with holes.
void layers(Stage& stage)
{
    Paints paints(stage);
    paints.texture("ground", {"rb", "gy"}, Paints::exact());
    paints.texture("cover", {"_w", "__"}, Paints::exact());
    paints.texture("shade", {".w", "w."}, Paints::exact().SetModulation(true));
    MaterialKit kit;
    kit.SetDiffuseTexture("ground", 0).SetDiffuseTexture("cover", 1).SetDiffuseTexture("shade", 2);
    stage.root().GetMaterialMappingControl().SetFaceMaterial(kit);
    stage.root().InsertShell(parametrised({0, 0, 0}, 3, 2.4f, 0, 2));
}

SceneTable const table{{"projected", projected}, {"channels", channels},           {"spots", spots},
                       {"rainbow", rainbow},     {"interpolation", interpolation}, {"sides", sides},
                       {"layers", layers}};

} // namespace
