#pragma once
#include <hps/Color.h>
#include <hps/GeometryKit.h>
#include <hps/Point.h>
#include <memory>

namespace HPS
{

// A value per element, for some of the elements. Empty if no element has one.
template <class T> struct ElementValues {
    std::vector<T> values;
    std::vector<bool> isSet; // as long as `values`, or empty where every element has its value

    bool Empty() const { return values.empty(); }
    bool IsSet(std::size_t i) const { return i < values.size() && (isSet.empty() || isSet[i]); }
    void SetRange(std::size_t start, std::size_t count, T const values[]);
    bool operator==(ElementValues const&) const = default;
};
extern template struct ElementValues<Vector>;
extern template struct ElementValues<RGBAColor>;

// Colours inside a shell.
struct ShellColors {
    ElementValues<RGBAColor> vertexFaces;   // per vertex, blended over the faces
    ElementValues<RGBAColor> vertexEdges;   // per vertex, blended along the edges
    ElementValues<RGBAColor> vertexMarkers; // of the vertices themselves
    ElementValues<RGBAColor> faces;         // per face; holes do not count
    bool operator==(ShellColors const&) const = default;
};

// The shape of a shell. The facelist holds for each face the number of its points and then their indices; a
// negative number is a hole in the face before it, with as many points.
struct ShellData {
    std::vector<Point> points;
    std::vector<int> facelist;
    ElementValues<Vector> vertexNormals;
    std::shared_ptr<ShellColors const> colors; // null if there are none; never changed once it is here

    friend bool operator==(ShellData const& a, ShellData const& b);
};

class ShellKit : public GeometryKit<ShellKit>
{
public:
    // What a vertex colour is for.
    enum class Component : std::uint32_t { Faces, Edges, Vertices };

    ShellKit& SetPoints(std::vector<Point> points);
    ShellKit& SetPoints(std::size_t count, Point const points[]);
    bool ShowPoints(std::vector<Point>& points) const;
    std::size_t GetPointCount() const { return data_.points.size(); }
    ShellKit& UnsetPoints();

    ShellKit& SetFacelist(std::vector<int> facelist);
    ShellKit& SetFacelist(std::size_t count, int const facelist[]);
    bool ShowFacelist(std::vector<int>& facelist) const;
    std::size_t GetFaceCount() const; // without holes
    ShellKit& UnsetFacelist();

    // Values for the vertices (faces) from `start` on. What lies behind the last vertex (face) is refused
    // when the shell is inserted.
    ShellKit& SetVertexNormalsByRange(std::size_t start, std::vector<Vector> const& normals);
    ShellKit& SetVertexNormalsByRange(std::size_t start, std::size_t count, Vector const normals[]);
    ShellKit& UnsetVertexNormals();
    bool ShowVertexNormals(std::vector<bool>& isSet, std::vector<Vector>& normals) const;

    ShellKit& SetVertexRGBAColorsByRange(std::size_t start, std::vector<RGBAColor> const& colors,
                                         Component component = Component::Faces);
    ShellKit& SetVertexRGBColorsByRange(std::size_t start, std::vector<RGBColor> const& colors,
                                        Component component = Component::Faces);
    ShellKit& UnsetVertexColors();
    bool ShowVertexColors(Component component, std::vector<bool>& isSet,
                          std::vector<RGBAColor>& colors) const;

    ShellKit& SetFaceRGBAColorsByRange(std::size_t start, std::vector<RGBAColor> const& colors);
    ShellKit& SetFaceRGBColorsByRange(std::size_t start, std::vector<RGBColor> const& colors);
    ShellKit& UnsetFaceColors();
    bool ShowFaceColors(std::vector<bool>& isSet, std::vector<RGBAColor>& colors) const;

    bool Empty() const { return data_ == ShellData{}; }
    void Reset() { *this = {}; }
    ShellData const& data() const { return data_; }
    ShellData& data() { return data_; }
    friend bool operator==(ShellKit const&, ShellKit const&) = default;

private:
    ShellData data_;
};

} // namespace HPS
