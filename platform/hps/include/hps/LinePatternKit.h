#pragma once
#include <hps/LinePatternOptionsKit.h>

namespace HPS
{

// One stretch of a line pattern, in multiples of the line's weight.
struct LinePatternElement {
    enum class Kind : std::uint32_t { Dash, Blank, Dot };
    Kind kind = Kind::Dash;
    float length = 1;
    bool operator==(LinePatternElement const&) const = default;
};

// Stretches that repeat along a line; none at all is a solid line.
struct LinePatternParallel {
    std::vector<LinePatternElement> elements;
    float offset = 0; // sideways, in multiples of the weight
    bool operator==(LinePatternParallel const&) const = default;
};

// The description of a line pattern: one or more rows of stretches side by side.
class LinePatternKit
{
public:
    static LinePatternKit GetDefault(LinePattern::Default pattern = LinePattern::Default::Solid);

    LinePatternKit& SetParallels(std::vector<LinePatternParallel> parallels);
    bool ShowParallels(std::vector<LinePatternParallel>& parallels) const;
    std::size_t GetParallelCount() const { return parallels_.size(); }
    LinePatternKit& SetJoin(LinePattern::Join join);
    LinePatternKit& UnsetJoin();
    bool ShowJoin(LinePattern::Join& join) const;

    std::vector<LinePatternParallel> const& parallels() const { return parallels_; }
    friend bool operator==(LinePatternKit const&, LinePatternKit const&) = default;

private:
    std::vector<LinePatternParallel> parallels_;
    std::optional<LinePattern::Join> join_;
};

} // namespace HPS
