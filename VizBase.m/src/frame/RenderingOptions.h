#pragma once

#include "RGBAColor.h"

namespace ZelVizBase
{

/// What is displayed, how wide and in which colour: a plain record for users of the library. It has no
/// listeners and touches no scene.
class RenderingOptions
{
public:
    /// New options, owned by the caller.
    static RenderingOptions* CreateDefault() { return new RenderingOptions; }

    bool GetDisplayFaces() const { return displayFaces_; }
    void SetDisplayFaces(bool on) { displayFaces_ = on; }
    bool GetDisplayEdges() const { return displayEdges_; }
    void SetDisplayEdges(bool on) { displayEdges_ = on; }
    bool GetDisplayVertices() const { return displayVertices_; }
    void SetDisplayVertices(bool on) { displayVertices_ = on; }
    bool GetDisplayTessellation() const { return displayTessellation_; }
    void SetDisplayTessellation(bool on) { displayTessellation_ = on; }
    bool GetDisplayClouds() const { return displayClouds_; }
    void SetDisplayClouds(bool on) { displayClouds_ = on; }
    bool GetDisplayPMI() const { return displayPMI_; }
    void SetDisplayPMI(bool on) { displayPMI_ = on; }

    // Widths are factors of the usual width; one that is not above 0 becomes 1.
    float GetEdgeWidth() const { return edgeWidth_; }
    void SetEdgeWidth(float width) { edgeWidth_ = positive(width); }
    float GetLineWidth() const { return lineWidth_; }
    void SetLineWidth(float width) { lineWidth_ = positive(width); }
    float GetVertexSize() const { return vertexSize_; }
    void SetVertexSize(float size) { vertexSize_ = positive(size); }

    RGBAColor GetDefaultBodyColor() const { return defaultBodyColor_; }
    void SetDefaultBodyColor(RGBAColor const& color) { defaultBodyColor_ = color; }
    RGBAColor GetDefaultFaceColor() const { return defaultFaceColor_; }
    void SetDefaultFaceColor(RGBAColor const& color) { defaultFaceColor_ = color; }
    RGBAColor GetDefaultEdgeColor() const { return defaultEdgeColor_; }
    void SetDefaultEdgeColor(RGBAColor const& color) { defaultEdgeColor_ = color; }
    RGBAColor GetDefaultTessEdgeColor() const { return defaultTessEdgeColor_; }
    void SetDefaultTessEdgeColor(RGBAColor const& color) { defaultTessEdgeColor_ = color; }
    RGBAColor GetDefaultVertexColor() const { return defaultVertexColor_; }
    void SetDefaultVertexColor(RGBAColor const& color) { defaultVertexColor_ = color; }
    RGBAColor GetDefaultCloudColor() const { return defaultCloudColor_; }
    void SetDefaultCloudColor(RGBAColor const& color) { defaultCloudColor_ = color; }
    RGBAColor GetDefaultPMIColor() const { return defaultPMIColor_; }
    void SetDefaultPMIColor(RGBAColor const& color) { defaultPMIColor_ = color; }
    RGBAColor GetHighlightColor() const { return highlightColor_; }
    void SetHighlightColor(RGBAColor const& color) { highlightColor_ = color; }
    RGBAColor GetHighlightFaceColor() const { return highlightFaceColor_; }
    void SetHighlightFaceColor(RGBAColor const& color) { highlightFaceColor_ = color; }
    RGBAColor GetHighlightEdgeColor() const { return highlightEdgeColor_; }
    void SetHighlightEdgeColor(RGBAColor const& color) { highlightEdgeColor_ = color; }

    int GetAntialiasLevel() const { return antialiasLevel_; }
    /// Samples a pixel: a power of two from 1 to 64; any other level becomes 1.
    void SetAntialiasLevel(int level)
    {
        bool const supported = level >= 1 && level <= 64 && (level & (level - 1)) == 0;
        antialiasLevel_ = supported ? level : 1;
    }

private:
    static float positive(float width) { return width > 0 ? width : 1.0F; }

    bool displayFaces_ = true;
    bool displayEdges_ = true;
    float edgeWidth_ = 1.0F;
    float lineWidth_ = 1.0F;
    bool displayVertices_ = false;
    float vertexSize_ = 1.0F;
    bool displayTessellation_ = false;
    bool displayClouds_ = true;
    bool displayPMI_ = true;
    RGBAColor defaultBodyColor_ = RGBAColor::Green();
    RGBAColor defaultFaceColor_{205, 197, 180, 255};
    RGBAColor defaultEdgeColor_ = RGBAColor::Black();
    RGBAColor defaultTessEdgeColor_{100, 75, 100, 255};
    RGBAColor defaultVertexColor_ = RGBAColor::Blue();
    RGBAColor defaultCloudColor_ = RGBAColor::Black();
    RGBAColor defaultPMIColor_ = RGBAColor::White();
    RGBAColor highlightColor_ = RGBAColor::Yellow();
    RGBAColor highlightFaceColor_{255, 130, 76, 255};
    RGBAColor highlightEdgeColor_{255, 214, 0, 255};
    int antialiasLevel_ = 1;
};

} // namespace ZelVizBase
