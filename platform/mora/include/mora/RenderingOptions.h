#pragma once
#include <mora/IRenderingOptions.h>
#include <mora/RGBAColor.h>
#include <vector>

namespace ZELVizCore
{

/// What a view displays and in which colours. A setter that changes a value tells the listeners.
/// Copying takes the values alone: listeners stay with their object and are not told of an assignment.
class RenderingOptions : public IRenderingOptions
{
public:
    RenderingOptions() = default;
    RenderingOptions(RenderingOptions const& other);
    RenderingOptions& operator=(RenderingOptions const& other);

    /// New options with the colours of the default settings, owned by the caller.
    static RenderingOptions* CreateDefault();

    void RegisterListener(IRenderingOptionsListener* listener) override;
    void UnregisterListener(IRenderingOptionsListener* listener) override;

    bool GetDisplayFaces() const { return values_.faces; }
    void SetDisplayFaces(bool on) { set(&Values::faces, on); }
    bool GetDisplayEdges() const { return values_.edges; }
    void SetDisplayEdges(bool on) { set(&Values::edges, on); }
    bool GetDisplayVertices() const { return values_.vertices; }
    void SetDisplayVertices(bool on) { set(&Values::vertices, on); }
    bool GetDisplayTessellation() const { return values_.tessellation; }
    void SetDisplayTessellation(bool on) { set(&Values::tessellation, on); }
    bool GetDisplayClouds() const { return values_.clouds; }
    void SetDisplayClouds(bool on) { set(&Values::clouds, on); }
    bool GetDisplayPMI() const { return values_.pmi; }
    void SetDisplayPMI(bool on) { set(&Values::pmi, on); }
    bool GetDisplayAxes() const { return values_.axes; }
    void SetDisplayAxes(bool on) { set(&Values::axes, on); }
    bool GetDisplayNavigationCube() const { return values_.navigationCube; }
    void SetDisplayNavigationCube(bool on) { set(&Values::navigationCube, on); }

    RGBAColor GetDefaultBodyColor() const { return values_.body; }
    void SetDefaultBodyColor(RGBAColor const& color) { set(&Values::body, color); }
    RGBAColor GetDefaultFaceColor() const { return values_.face; }
    void SetDefaultFaceColor(RGBAColor const& color) { set(&Values::face, color); }
    RGBAColor GetDefaultEdgeColor() const { return values_.edge; }
    void SetDefaultEdgeColor(RGBAColor const& color) { set(&Values::edge, color); }
    RGBAColor GetDefaultTessEdgeColor() const { return values_.tessEdge; }
    void SetDefaultTessEdgeColor(RGBAColor const& color) { set(&Values::tessEdge, color); }
    RGBAColor GetDefaultVertexColor() const { return values_.vertex; }
    void SetDefaultVertexColor(RGBAColor const& color) { set(&Values::vertex, color); }
    RGBAColor GetHighlightColor() const { return values_.highlight; }
    void SetHighlightColor(RGBAColor const& color) { set(&Values::highlight, color); }

private:
    struct Values {
        bool faces = true;
        bool edges = true;
        bool vertices = false;
        bool tessellation = false;
        bool clouds = true;
        bool pmi = true;
        bool axes = true;
        bool navigationCube = true;
        RGBAColor body, face, edge, tessEdge, vertex, highlight;
    };

    template <class Value> void set(Value Values::*member, Value const& value)
    {
        if (values_.*member == value) return;
        values_.*member = value;
        notifyListeners();
    }

    void notifyListeners();

    Values values_;
    std::vector<IRenderingOptionsListener*> listeners_;
};

} // namespace ZELVizCore
