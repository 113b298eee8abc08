#pragma once
#include <cstdint>
#include <hps/LinePatternKit.h>
#include <span>
#include <vector>

namespace HPS::render
{

/// Line patterns as the device takes them: flat tables that refer to each other by index. All lengths count
/// in multiples of the line's weight. Row 0 is a plain solid line.
class StrokeTable
{
public:
    /// One pattern.
    struct Head {
        std::uint32_t firstRow;
        std::uint32_t rowCount;
        std::uint32_t ends; ///< see `packEnds`
        float reach;        ///< half the width that all rows together take
    };
    /// Stretches side by side with those of other rows.
    struct Row {
        float period; ///< 0: solid
        float offset; ///< sideways, to the left of the way that the line runs
        std::uint32_t firstDash;
        std::uint32_t dashCount;
    };
    /// What is seen of a period, between two places. Where they are one place there is a dot.
    struct Dash {
        float from, to;
    };

    StrokeTable();

    /// The row of a pattern with options; `pattern` may be null for a solid line. Equal ones share a row.
    std::uint32_t intern(LinePatternKit const* pattern, LinePatternOptionsKit const& options);

    std::span<Head const> heads() const { return heads_; }
    std::span<Row const> rows() const { return rows_; }
    std::span<Dash const> dashes() const { return dashes_; }

    /// Differs whenever the patterns do, from those of every other table too.
    std::uint64_t version() const { return version_; }

    /// Caps at the start and the end of a line, caps of the dashes in between, and the join; four bits each.
    static std::uint32_t packEnds(LinePattern::Cap start, LinePattern::Cap end, LinePattern::Cap inner,
                                  LinePattern::Join join);

private:
    struct Known {
        LinePatternKit pattern;
        LinePatternOptionsKit options;
    };
    std::vector<Known> known_; ///< by row; few
    std::uint64_t version_ = 0;
    std::vector<Head> heads_;
    std::vector<Row> rows_;
    std::vector<Dash> dashes_;
};

} // namespace HPS::render
