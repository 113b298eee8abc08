#pragma once

#include <optional>
#include <string>

namespace NarMetaVisu
{

/// Pattern and weight of lines.
class LineAttribute
{
public:
    /// Values 1 to 9 are, in this order, the nine patterns that the scene library knows by default.
    enum VisuLineStyle {
        None = 0,
        Solid = 1,
        Dashed = 2,
        Dotted = 3,
        DashedDotted = 4,
        DashedDoubleDotted = 5,
        DashedTripleDotted = 6,
        LongDashed = 7,
        LongDashedDotted = 8,
        LongDashedDoubleDotted = 9
    };

    void SetLineStyle(VisuLineStyle style) { style_ = style; }
    /// A factor on the line width of the scene.
    void SetLineWeight(float weight) { weight_ = weight; }

    bool GetLineStyle(VisuLineStyle& style) const;
    bool GetLineWeight(float& weight) const;

    /// The name under which a pattern is defined in the scene; empty for a number that is no style.
    static std::string ToString(VisuLineStyle style);
    /// The name of this attribute's own pattern.
    std::string ToString() const;

private:
    std::optional<VisuLineStyle> style_;
    std::optional<float> weight_;
};

} // namespace NarMetaVisu
