#pragma once
#include <array>
#include <hps/GeometryKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/MatrixKit.h>
#include <hps/TextAttributeKit.h>

namespace HPS
{

// The area that a text is fitted into.
struct TextRegion {
    std::vector<Point> points; // two or three
    Text::RegionAlignment alignment = Text::RegionAlignment::Bottom;
    Text::RegionFitting fitting = Text::RegionFitting::Left;
    bool adjustDirection = true;
    bool relativeCoordinates = true;
    bool windowSpace = false;

    bool operator==(TextRegion const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{
            &TextRegion::points,          &TextRegion::alignment,           &TextRegion::fitting,
            &TextRegion::adjustDirection, &TextRegion::relativeCoordinates, &TextRegion::windowSpace};
    }
};

struct TextData {
    Point position;
    UTF8 text;
    TextAttributeData attributes; // where set, they go before the segment's
    std::optional<SimpleMaterial> color;
    std::optional<MatrixKit> modellingMatrix;
    std::optional<std::tuple<std::vector<Point>, Text::LeaderLineSpace>> leaderLines;
    std::optional<TextRegion> region;

    bool operator==(TextData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{
            &TextData::position,        &TextData::text,        &TextData::attributes, &TextData::color,
            &TextData::modellingMatrix, &TextData::leaderLines, &TextData::region};
    }
};

// A text, with attributes of its own where the segment's are not to hold.
class TextKit : public GeometryKit<TextKit>, public TextAttributeOperations<TextKit>
{
public:
    TextKit() = default;
    TextKit(Point const& position, UTF8 const& text);

    TextKit& SetPosition(Point const& position);
    TextKit& SetPosition(float x, float y, float z) { return SetPosition(Point(x, y, z)); }
    bool ShowPosition(Point& position) const;
    TextKit& SetText(UTF8 const& text);
    bool ShowText(UTF8& text) const;

    TextKit& SetColor(RGBAColor const& color);
    TextKit& SetColorByIndex(float index);
    TextKit& UnsetColor();
    bool ShowColor(Material::Type& type, RGBAColor& color, float& index) const;

    TextKit& SetModellingMatrix(MatrixKit const& matrix);
    TextKit& UnsetModellingMatrix();
    bool ShowModellingMatrix(MatrixKit& matrix) const;

    TextKit& SetLeaderLines(std::vector<Point> const& positions,
                            Text::LeaderLineSpace space = Text::LeaderLineSpace::Object);
    TextKit& UnsetLeaderLines();
    bool ShowLeaderLines(std::vector<Point>& positions, Text::LeaderLineSpace& space) const;

    // Two or three points; others are ignored.
    TextKit& SetRegion(std::size_t count, Point const points[], Text::RegionAlignment alignment,
                       Text::RegionFitting fitting, bool adjustDirection, bool relativeCoordinates,
                       bool windowSpace);
    TextKit& SetRegion(std::vector<Point> const& points, Text::RegionAlignment alignment,
                       Text::RegionFitting fitting, bool adjustDirection, bool relativeCoordinates,
                       bool windowSpace)
    {
        return SetRegion(points.size(), points.data(), alignment, fitting, adjustDirection,
                         relativeCoordinates, windowSpace);
    }
    TextKit& UnsetRegion();
    bool ShowRegion(std::vector<Point>& points, Text::RegionAlignment& alignment,
                    Text::RegionFitting& fitting, bool& adjustDirection, bool& relativeCoordinates,
                    bool& windowSpace) const;

    bool Empty() const { return data_ == TextData{}; }
    void Reset() { *this = {}; }

    // The attributes, for the operations inherited from the text attribute.
    TextAttributeData const& data() const { return data_.attributes; }
    template <class F> void edit(F&& f) { f(data_.attributes); }
    TextData const& textData() const { return data_; }
    TextData& textData() { return data_; }
    friend bool operator==(TextKit const& a, TextKit const& b)
    {
        return a.data_ == b.data_ && a.extras() == b.extras();
    }

private:
    TextData data_;
};

inline TextData& shapeOf(TextKit& kit)
{
    return kit.textData();
}

} // namespace HPS
