#pragma once

#include "CadDocument.h"
#include "Picture.h"

#include <optional>
#include <string>
#include <vector>

namespace zelview
{

/// A step of the work.
struct Stage {
    std::string name;
    double seconds;
    bool inKernel; ///< the modelling kernel did it, not we
};

/// Every stage of a job that measures itself.
/// @param picture null: none was made
std::vector<Stage> stagesOf(ZelCad::CadDocument const& document, Picture const* picture,
                            double encodeSeconds);

struct JobFigures {
    std::string file;
    double totalSeconds;
    Picture const* picture; ///< null: none was made
    std::vector<Stage> stages;
};

/// What the model holds and where the time went: lines "label : value". Everything that the modelling
/// kernel has not done counts as own work: graphics, and what nobody measured, included.
std::string infoText(ZelCad::CadDocument const& document, JobFigures const& figures);

} // namespace zelview
