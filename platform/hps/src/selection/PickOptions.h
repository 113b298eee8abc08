#pragma once
#include <hps/SelectionOptionsKit.h>

namespace HPS::selection
{

/// How a selection is made, every word of it set.
struct PickOptions {
    double proximity;
    Selection::Level level;
    std::size_t internalLimit; ///< further parts of each kind within a geometry
    std::size_t relatedLimit;  ///< further results
    Selection::Sorting sorting;
    Selection::Algorithm algorithm;
    Selection::Granularity granularity;
    bool respectExtent, respectFrustum, respectVector;

    /// The first that sets a word counts, the defaults last.
    PickOptions(SelectionOptionsData const& given, SelectionOptionsData const& ofWindow);
};

} // namespace HPS::selection
