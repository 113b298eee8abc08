#include <hps/TextKit.h>

namespace HPS
{

TextKit::TextKit(Point const& position, UTF8 const& text)
{
    data_.position = position;
    data_.text = text;
}

TextKit& TextKit::SetPosition(Point const& position)
{
    data_.position = position;
    return *this;
}

bool TextKit::ShowPosition(Point& position) const
{
    position = data_.position;
    return true;
}

TextKit& TextKit::SetText(UTF8 const& text)
{
    data_.text = text;
    return *this;
}

bool TextKit::ShowText(UTF8& text) const
{
    text = data_.text;
    return true;
}

TextKit& TextKit::SetColor(RGBAColor const& color)
{
    detail::setSimple(data_.color, color);
    return *this;
}

TextKit& TextKit::SetColorByIndex(float index)
{
    detail::setSimpleIndex(data_.color, index);
    return *this;
}

TextKit& TextKit::UnsetColor()
{
    data_.color.reset();
    return *this;
}

bool TextKit::ShowColor(Material::Type& type, RGBAColor& color, float& index) const
{
    return detail::showSimple(data_.color, type, color, index);
}

TextKit& TextKit::SetModellingMatrix(MatrixKit const& matrix)
{
    data_.modellingMatrix = matrix;
    return *this;
}

TextKit& TextKit::UnsetModellingMatrix()
{
    data_.modellingMatrix.reset();
    return *this;
}

bool TextKit::ShowModellingMatrix(MatrixKit& matrix) const
{
    if (data_.modellingMatrix) matrix = *data_.modellingMatrix;
    return data_.modellingMatrix.has_value();
}

TextKit& TextKit::SetLeaderLines(std::vector<Point> const& positions, Text::LeaderLineSpace space)
{
    data_.leaderLines.emplace(positions, space);
    return *this;
}

TextKit& TextKit::UnsetLeaderLines()
{
    data_.leaderLines.reset();
    return *this;
}

bool TextKit::ShowLeaderLines(std::vector<Point>& positions, Text::LeaderLineSpace& space) const
{
    if (data_.leaderLines) std::tie(positions, space) = *data_.leaderLines;
    return data_.leaderLines.has_value();
}

TextKit& TextKit::SetRegion(std::size_t count, Point const points[], Text::RegionAlignment alignment,
                            Text::RegionFitting fitting, bool adjustDirection, bool relativeCoordinates,
                            bool windowSpace)
{
    if (count == 2 || count == 3)
        data_.region = TextRegion{std::vector<Point>(points, points + count),
                                  alignment,
                                  fitting,
                                  adjustDirection,
                                  relativeCoordinates,
                                  windowSpace};
    return *this;
}

TextKit& TextKit::UnsetRegion()
{
    data_.region.reset();
    return *this;
}

bool TextKit::ShowRegion(std::vector<Point>& points, Text::RegionAlignment& alignment,
                         Text::RegionFitting& fitting, bool& adjustDirection, bool& relativeCoordinates,
                         bool& windowSpace) const
{
    if (!data_.region) return false;
    points = data_.region->points;
    alignment = data_.region->alignment;
    fitting = data_.region->fitting;
    adjustDirection = data_.region->adjustDirection;
    relativeCoordinates = data_.region->relativeCoordinates;
    windowSpace = data_.region->windowSpace;
    return true;
}

} // namespace HPS
