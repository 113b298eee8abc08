#pragma once
#include <hps/Color.h>
#include <hps/GeometryKit.h>
#include <hps/Point.h>

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

// The shape of a shell. The facelist holds for each face the number of its points and then their indices; a
// negative number is a hole in the face before it, with as many points.
struct ShellData {
    std::vector<Point> points;
    std::vector<int> facelist;
    ElementValues<Vector> vertexNormals;
    ElementValues<RGBAColor> vertexFaceColors;   // blended over the faces
    ElementValues<RGBAColor> vertexEdgeColors;   // blended along the edges
    ElementValues<RGBAColor> vertexMarkerColors; // of the vertices themselves
    ElementValues<RGBAColor> faceColors;         // holes do not count as faces
    bool operator==(ShellData const&) const = default;
};

class ShellKit : public GeometryKit<ShellKit>
{
public:
    // What a vertex colour is for; the numbers are the bits of the kinds.
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
