// Every row of the scene inspector's panel is an aspect of its kit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <hps/Factory.h>
#include <hps/WindowKey.h>
#include <hps/hps.h>

using namespace HPS;

namespace
{

using Names = std::vector<std::string>;

template <class Kit> Names aspectsOf()
{
    Names names;
    forEachAspect<typename Kit::Data>([&](auto const& aspect) { names.emplace_back(aspect.name); });
    return names;
}

struct Panel {
    char const* kit;
    Names aspects;
    Names rows;
};

std::vector<Panel> panels()
{
    return {
        {"AttributeLock", aspectsOf<AttributeLockKit>(), {"Lock", "SubsegmentLockOverride"}},
        {"Bounding", aspectsOf<BoundingKit>(), {"Volume", "Exclusion"}},
        {"ColorInterpolation",
         aspectsOf<ColorInterpolationKit>(),
         {"FaceColor", "EdgeColor", "VertexColor", "FaceIndex", "EdgeIndex", "VertexIndex"}},
        {"ContourLine",
         aspectsOf<ContourLineKit>(),
         {"Visibility", "Positions", "Colors", "Patterns", "Weights", "Lighting"}},
        {"Culling",
         aspectsOf<CullingKit>(),
         {"DeferralExtent", "Extent", "BackFace", "Vector", "VectorTolerance", "Frustum", "Volume",
          "Distance"}},
        {"CurveAttribute",
         aspectsOf<CurveAttributeKit>(),
         {"Budget", "ContinuedBudget", "ViewDependent", "MaximumDeviation", "MaximumAngle", "MaximumLength"}},
        {"CuttingSectionAttribute",
         aspectsOf<CuttingSectionAttributeKit>(),
         {"CuttingLevel", "CappingLevel", "CappingUsage", "MaterialPreference", "EdgeWeight", "Tolerance"}},
        {"CylinderAttribute", aspectsOf<CylinderAttributeKit>(), {"Tessellation", "Orientation"}},
        {"DrawingAttribute",
         aspectsOf<DrawingAttributeKit>(),
         {"PolygonHandedness", "WorldHandedness", "DepthRange", "FaceDisplacement", "GeneralDisplacement",
          "VertexDisplacement", "VertexDecimation", "VertexRandomization", "OverrideInternalColor", "Overlay",
          "Deferral", "ClipRegion"}},
        {"EdgeAttribute", aspectsOf<EdgeAttributeKit>(), {"Pattern", "Weight", "HardAngle"}},
        {"HiddenLineAttribute",
         aspectsOf<HiddenLineAttributeKit>(),
         {"Algorithm", "Color", "DimFactor", "FaceDisplacement", "LinePattern", "LineSorting", "RenderFaces",
          "RenderText", "SilhouetteCleanup", "TransparencyCutoff", "Visibility", "Weight"}},
        {"LightingAttribute", aspectsOf<LightingAttributeKit>(), {"InterpolationAlgorithm"}},
        {"LineAttribute", aspectsOf<LineAttributeKit>(), {"Pattern", "Weight"}},
        {"MarkerAttribute",
         aspectsOf<MarkerAttributeKit>(),
         {"Symbol", "Size", "DrawingPreference", "GlyphRotation"}},
        {"MaterialMapping",
         aspectsOf<MaterialMappingKit>(),
         {"FrontFaceMaterial", "BackFaceMaterial", "EdgeMaterial", "VertexMaterial", "LineColor", "TextColor",
          "MarkerColor", "LightColor", "WindowColor", "WindowContrastColor", "AmbientLightUpColor",
          "AmbientLightDownColor", "CutFaceMaterial", "CutEdgeColor"}},
        {"NURBSSurfaceAttribute",
         aspectsOf<NURBSSurfaceAttributeKit>(),
         {"Budget", "MaximumDeviation", "MaximumAngle", "MaximumWidth", "TrimBudget",
          "MaximumTrimDeviation"}},
        {"Performance",
         aspectsOf<PerformanceKit>(),
         {"DisplayLists", "TextHardwareAcceleration", "StaticModel", "StaticConditions"}},
        {"Selectability",
         aspectsOf<SelectabilityKit>(),
         {"Windows", "Edges", "Faces", "Lights", "Lines", "Markers", "Vertices", "Text"}},
        {"SphereAttribute", aspectsOf<SphereAttributeKit>(), {"Tessellation"}},
        {"Subwindow",
         aspectsOf<SubwindowKit>(),
         {"Subwindow", "Background", "Border", "RenderingAlgorithm", "ModelCompareMode"}},
        {"TextAttribute",
         aspectsOf<TextAttributeKit>(),
         {"Alignment",         "Bold",           "Italic",      "Overline", "Strikethrough",
          "Underline",         "Slant",          "LineSpacing", "Rotation", "ExtraSpace",
          "Greeking",          "SizeTolerance",  "Size",        "Font",     "Transform",
          "Renderer",          "Preference",     "Path",        "Spacing",  "Background",
          "BackgroundMargins", "BackgroundStyle"}},
        {"TransformMask",
         aspectsOf<TransformMaskKit>(),
         {"CameraRotation", "CameraScale", "CameraTranslation", "CameraPerspectiveScale", "CameraProjection",
          "CameraOffset", "CameraNearLimit", "ModellingMatrixRotation", "ModellingMatrixScale",
          "ModellingMatrixTranslation", "ModellingMatrixOffset"}},
        {"Transparency",
         aspectsOf<TransparencyKit>(),
         {"Method", "Algorithm", "DepthPeelingLayers", "DepthPeelingMinimumArea", "DepthWriting",
          "DepthPeelingPreference"}},
        {"Visibility", aspectsOf<VisibilityKit>(), {"Faces",           "Lines",
                                                    "GenericEdges",    "InteriorSilhouetteEdges",
                                                    "AdjacentEdges",   "HardEdges",
                                                    "MeshQuadEdges",   "NonCulledEdges",
                                                    "PerimeterEdges",  "Text",
                                                    "LeaderLines",     "Vertices",
                                                    "Markers",         "EdgeLights",
                                                    "MarkerLights",    "FaceLights",
                                                    "CuttingSections", "CutFaces",
                                                    "CutEdges",        "Windows",
                                                    "ShadowCasting",   "ShadowReceiving",
                                                    "ShadowEmitting"}},
        {"VisualEffects",
         aspectsOf<VisualEffectsKit>(),
         {"PostProcessEffectsEnabled", "AmbientOcclusionEnabled", "SilhouetteEdgesEnabled",
          "DepthOfFieldEnabled", "BloomEnabled", "EyeDomeLightingEnabled", "EyeDomeLightingBackColor",
          "AntiAliasing", "TextAntiAliasing", "ShadowMaps", "SimpleShadow", "SimpleShadowPlane",
          "SimpleShadowLightDirection", "SimpleShadowColor", "SimpleReflection", "SimpleReflectionPlane",
          "SimpleReflectionVisibility"}},
        {"Debugging", aspectsOf<DebuggingKit>(), {"ResourceMonitor"}},
        {"PostProcessEffects",
         aspectsOf<PostProcessEffectsKit>(),
         {"AmbientOcclusion", "Bloom", "DepthOfField", "SilhouetteEdges", "EyeDomeLighting", "WorldScale"}},
        {"SelectionOptions",
         aspectsOf<SelectionOptionsKit>(),
         {"Proximity", "Level", "InternalLimit", "RelatedLimit", "Sorting", "Algorithm", "Granularity",
          "ExtentCullingRespected", "DeferralExtentCullingRespected", "FrustumCullingRespected",
          "VectorCullingRespected"}},
        {"UpdateOptions", aspectsOf<UpdateOptionsKit>(), {"UpdateType", "TimeLimit"}},
    };
}

TEST(Panels, ShowWhatTheKitsHave)
{
    for (auto const& panel : panels())
        EXPECT_THAT(panel.aspects, testing::UnorderedElementsAreArray(panel.rows)) << panel.kit;
}

} // namespace
