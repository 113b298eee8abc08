#pragma once
#include <hps/Color.h>
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How a picture of hidden lines is drawn.
struct HiddenLineAttributeData {
    std::optional<HiddenLine::Algorithm> algorithm;
    std::optional<RGBAColor> color;
    std::optional<float> dimFactor;
    std::optional<float> faceDisplacement;
    std::optional<UTF8> linePattern;
    std::optional<std::tuple<bool, float, Line::SizeUnits>> lineSorting;
    std::optional<bool> renderFaces;
    std::optional<bool> renderText;
    std::optional<bool> silhouetteCleanup;
    std::optional<float> transparencyCutoff;
    std::optional<bool> visibility;
    std::optional<std::tuple<float, Line::SizeUnits>> weight;

    bool operator==(HiddenLineAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Algorithm", &HiddenLineAttributeData::algorithm},
                          Aspect{2, "Color", &HiddenLineAttributeData::color},
                          Aspect{3, "DimFactor", &HiddenLineAttributeData::dimFactor},
                          Aspect{4, "FaceDisplacement", &HiddenLineAttributeData::faceDisplacement},
                          Aspect{5, "LinePattern", &HiddenLineAttributeData::linePattern},
                          Aspect{6, "LineSorting", &HiddenLineAttributeData::lineSorting},
                          Aspect{7, "RenderFaces", &HiddenLineAttributeData::renderFaces},
                          Aspect{8, "RenderText", &HiddenLineAttributeData::renderText},
                          Aspect{9, "SilhouetteCleanup", &HiddenLineAttributeData::silhouetteCleanup},
                          Aspect{10, "TransparencyCutoff", &HiddenLineAttributeData::transparencyCutoff},
                          Aspect{11, "Visibility", &HiddenLineAttributeData::visibility},
                          Aspect{12, "Weight", &HiddenLineAttributeData::weight}};
    }
};
static_assert(CompleteKit<HiddenLineAttributeData>);

template <class Self> class HiddenLineAttributeOperations : public Operations<Self>
{
public:
    using Data = HiddenLineAttributeData;

    HPS_ASPECT(Algorithm, HiddenLine::Algorithm, algorithm)
    // Of the hidden lines.
    HPS_ASPECT(Color, RGBAColor, color)
    // From 0, invisible, to 1, as bright as visible lines.
    HPS_ASPECT(DimFactor, float, dimFactor)
    // Depth buckets that faces are moved away by.
    HPS_ASPECT(FaceDisplacement, float, faceDisplacement)
    // Of hidden lines, by name.
    HPS_ASPECT(LinePattern, UTF8, linePattern)
    // Lines heavier than the threshold are sorted as faces are.
    HPS_ASPECT_PARTS(LineSorting, lineSorting,
                     (bool state, float threshold = 0, Line::SizeUnits units = Line::SizeUnits::ScaleFactor),
                     (bool& state, float& threshold, Line::SizeUnits& units), state, threshold, units)
    HPS_ASPECT(RenderFaces, bool, renderFaces)
    HPS_ASPECT(RenderText, bool, renderText)
    // Removes what remains of lines at the outline of curved faces.
    HPS_ASPECT(SilhouetteCleanup, bool, silhouetteCleanup)
    // Faces of less opacity hide nothing; 0 to 1.
    HPS_ASPECT(TransparencyCutoff, float, transparencyCutoff)
    // Of hidden lines.
    HPS_ASPECT(Visibility, bool, visibility)
    HPS_ASPECT_PARTS(Weight, weight, (float weight, Line::SizeUnits units = Line::SizeUnits::ScaleFactor),
                     (float& weight, Line::SizeUnits& units), weight, units)
};

class HiddenLineAttributeKit : public Kit<HiddenLineAttributeKit, HiddenLineAttributeOperations>
{
public:
    static HiddenLineAttributeKit GetDefault();
};

class HiddenLineAttributeControl : public Control<HiddenLineAttributeControl, HiddenLineAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
