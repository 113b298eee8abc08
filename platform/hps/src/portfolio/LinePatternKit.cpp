#include <hps/LinePatternKit.h>

namespace HPS
{

LinePatternKit LinePatternKit::GetDefault(LinePattern::Default pattern)
{
    using enum LinePatternElement::Kind;
    constexpr LinePatternElement dash{Dash, 6}, shortDash{Dash, 3}, longDash{Dash, 12};
    constexpr LinePatternElement gap{Blank, 3}, dot{Dot, 1};
    auto const elements = [&]() -> std::vector<LinePatternElement> {
        switch (pattern) {
        case LinePattern::Default::Solid:
            return {};
        case LinePattern::Default::Dashed:
            return {dash, gap};
        case LinePattern::Default::Dotted:
            return {dot, gap};
        case LinePattern::Default::DashDot:
            return {dash, gap, dot, gap};
        case LinePattern::Default::DashDotDot:
            return {dash, gap, dot, gap, dot, gap};
        case LinePattern::Default::DashDotDotDot:
            return {dash, gap, dot, gap, dot, gap, dot, gap};
        case LinePattern::Default::LongDash:
            return {longDash, gap};
        case LinePattern::Default::CenterLine:
            return {longDash, gap, shortDash, gap};
        case LinePattern::Default::Phantom:
            return {longDash, gap, shortDash, gap, shortDash, gap};
        }
        return {};
    };
    LinePatternKit kit;
    kit.parallels_.push_back({elements(), 0});
    return kit;
}

LinePatternKit& LinePatternKit::SetParallels(std::vector<LinePatternParallel> parallels)
{
    parallels_ = std::move(parallels);
    return *this;
}

bool LinePatternKit::ShowParallels(std::vector<LinePatternParallel>& parallels) const
{
    if (parallels_.empty()) return false;
    parallels = parallels_;
    return true;
}

LinePatternKit& LinePatternKit::SetJoin(LinePattern::Join join)
{
    join_ = join;
    return *this;
}

LinePatternKit& LinePatternKit::UnsetJoin()
{
    join_.reset();
    return *this;
}

bool LinePatternKit::ShowJoin(LinePattern::Join& join) const
{
    if (join_) join = *join_;
    return join_.has_value();
}

} // namespace HPS
