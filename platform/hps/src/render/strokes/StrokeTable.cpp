#include "StrokeTable.h"
#include <algorithm>
#include <atomic>
#include <cmath>

namespace HPS::render
{
namespace
{

/// Of a glyph's name the table knows nothing: a glyph stands at a bare end and is drawn by itself.
LinePattern::Cap capOf(std::optional<CapOrJoin<LinePattern::Cap>> const& cap)
{
    return cap && cap->modifier == LinePattern::Modifier::Enumerated ? cap->shape : LinePattern::Cap::Butt;
}

double usable(float length)
{
    return length > 0 && length < 1e6f ? length : 0;
}

} // namespace

StrokeTable::StrokeTable()
{
    intern(nullptr, {});
}

std::uint32_t StrokeTable::packEnds(LinePattern::Cap start, LinePattern::Cap end, LinePattern::Cap inner,
                                    LinePattern::Join join)
{
    return std::uint32_t(start) | std::uint32_t(end) << 4 | std::uint32_t(inner) << 8 |
           std::uint32_t(join) << 12;
}

std::uint32_t StrokeTable::intern(LinePatternKit const* pattern, LinePatternOptionsKit const& options)
{
    static LinePatternKit const solid = LinePatternKit::GetDefault();
    LinePatternKit const& wanted = pattern != nullptr ? *pattern : solid;
    auto const same = std::find_if(known_.begin(), known_.end(), [&](Known const& known) {
        return known.pattern == wanted && known.options == options;
    });
    if (same != known_.end()) return std::uint32_t(same - known_.begin());

    Head head{std::uint32_t(rows_.size()), 0, 0, 0.5f};
    for (LinePatternParallel const& parallel : wanted.parallels()) {
        Row row{0, std::isfinite(parallel.offset) ? parallel.offset : 0.0f, std::uint32_t(dashes_.size()), 0};
        double at = 0;
        for (LinePatternElement const& element : parallel.elements) {
            double const length = usable(element.length);
            switch (element.kind) {
            case LinePatternElement::Kind::Dash:
                dashes_.push_back({float(at), float(at + length)});
                break;
            case LinePatternElement::Kind::Dot:
                dashes_.push_back({float(at + length / 2), float(at + length / 2)});
                break;
            case LinePatternElement::Kind::Blank:
                break;
            }
            at += length;
        }
        row.period = float(at);
        row.dashCount = std::uint32_t(dashes_.size()) - row.firstDash;
        rows_.push_back(row);
        head.reach = std::max(head.reach, std::abs(row.offset) + 0.5f);
    }
    if (wanted.parallels().empty()) rows_.push_back({0, 0, std::uint32_t(dashes_.size()), 0});
    head.rowCount = std::uint32_t(rows_.size()) - head.firstRow;

    LinePatternOptionsData const& ends = options.data();
    LinePattern::Join join = LinePattern::Join::Mitre;
    wanted.ShowJoin(join);
    if (ends.join && ends.join->modifier == LinePattern::Modifier::Enumerated) join = ends.join->shape;
    head.ends = packEnds(capOf(ends.startCap), capOf(ends.endCap),
                         ends.innerCap.value_or(LinePattern::Cap::Butt), join);
    heads_.push_back(head);
    known_.push_back({wanted, options});
    static std::atomic<std::uint64_t> versions{0};
    version_ = ++versions;
    return std::uint32_t(heads_.size() - 1);
}

} // namespace HPS::render
