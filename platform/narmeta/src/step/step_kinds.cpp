#include "step_kinds.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cwchar>
#include <utility>

namespace NarMetaInfra
{
using NarMetaPmi::PMIAnnotationType;
using NarMetaPmi::PMIDimensionSubType;
using NarMetaPmi::PMIToleranceType;

StepToleranceKind const StepToleranceKinds[16] = {
    {"STRAIGHTNESS_TOLERANCE", PMIToleranceType::Straightness},
    {"FLATNESS_TOLERANCE", PMIToleranceType::Flatness},
    {"ROUNDNESS_TOLERANCE", PMIToleranceType::Circularity},
    {"CYLINDRICITY_TOLERANCE", PMIToleranceType::Cylindricity},
    {"LINE_PROFILE_TOLERANCE", PMIToleranceType::LineProfile},
    {"SURFACE_PROFILE_TOLERANCE", PMIToleranceType::SurfaceProfile},
    {"ANGULARITY_TOLERANCE", PMIToleranceType::Angularity},
    {"PERPENDICULARITY_TOLERANCE", PMIToleranceType::Perpendicularity},
    {"PARALLELISM_TOLERANCE", PMIToleranceType::Parallelism},
    {"POSITION_TOLERANCE", PMIToleranceType::Position},
    {"CONCENTRICITY_TOLERANCE", PMIToleranceType::Concentricity},
    {"COAXIALITY_TOLERANCE", PMIToleranceType::Coaxiality},
    {"SYMMETRY_TOLERANCE", PMIToleranceType::Symmetry},
    {"CIRCULAR_RUNOUT_TOLERANCE", PMIToleranceType::CircularRunout},
    {"TOTAL_RUNOUT_TOLERANCE", PMIToleranceType::TotalRunout},
    {"GEOMETRIC_TOLERANCE", PMIToleranceType::Unknown},
};

namespace
{
std::string lowered(std::string_view name)
{
    std::string text(name);
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

// The first row whose words stand in the name holds.
constexpr std::array<std::pair<std::string_view, PMIDimensionSubType>, 14> MeasuredWords = {
    {{"thread", PMIDimensionSubType::ThreadDiameter},
     {"spherical diameter", PMIDimensionSubType::SphericalDiameter},
     {"spherical radius", PMIDimensionSubType::SphericalRadius},
     {"minor diameter", PMIDimensionSubType::MinorDiameter},
     {"major diameter", PMIDimensionSubType::MajorDiameter},
     {"minor radius", PMIDimensionSubType::MinorRadius},
     {"major radius", PMIDimensionSubType::MajorRadius},
     {"diameter", PMIDimensionSubType::Diameter},
     {"radius", PMIDimensionSubType::Radius},
     {"thickness", PMIDimensionSubType::Thickness},
     {"depth", PMIDimensionSubType::Depth},
     {"curved distance", PMIDimensionSubType::CurvedDistance},
     {"distance", PMIDimensionSubType::Distance},
     {"length", PMIDimensionSubType::Length}}};

struct PictureWord {
    std::string_view word;
    StepPictureKind kind;
};
constexpr auto tolerance(std::string_view word, PMIToleranceType type)
{
    return PictureWord{word, {PMIAnnotationType::GeometricTolerance, false, type}};
}
constexpr PictureWord PictureWords[] = {
    {"datum target", {PMIAnnotationType::Datum, true}},
    {"datum", {PMIAnnotationType::Datum}},
    {"dimension", {PMIAnnotationType::Dimension}},
    {"roughness", {PMIAnnotationType::Roughness}},
    {"texture", {PMIAnnotationType::Roughness}},
    {"note", {PMIAnnotationType::Note}},
    {"general tolerance", {PMIAnnotationType::Note}},
    {"label", {PMIAnnotationType::Note}},
    tolerance("straightness", PMIToleranceType::Straightness),
    tolerance("flatness", PMIToleranceType::Flatness),
    tolerance("circularity", PMIToleranceType::Circularity),
    tolerance("roundness", PMIToleranceType::Circularity),
    tolerance("cylindricity", PMIToleranceType::Cylindricity),
    tolerance("profile of line", PMIToleranceType::LineProfile),
    tolerance("profile of a line", PMIToleranceType::LineProfile),
    tolerance("profile", PMIToleranceType::SurfaceProfile),
    tolerance("angularity", PMIToleranceType::Angularity),
    tolerance("perpendicularity", PMIToleranceType::Perpendicularity),
    tolerance("parallelism", PMIToleranceType::Parallelism),
    tolerance("position", PMIToleranceType::Position),
    tolerance("concentricity", PMIToleranceType::Concentricity),
    tolerance("coaxiality", PMIToleranceType::Coaxiality),
    tolerance("symmetry", PMIToleranceType::Symmetry),
    tolerance("circular runout", PMIToleranceType::CircularRunout),
    tolerance("total runout", PMIToleranceType::TotalRunout),
    tolerance("tolerance", PMIToleranceType::Unknown),
    tolerance("fcf", PMIToleranceType::Unknown), // feature control frame
};
} // namespace

PMIDimensionSubType stepMeasured(std::string_view name, bool isAngle)
{
    if (isAngle) return PMIDimensionSubType::Angle;
    auto const text = lowered(name);
    for (auto const& [words, measured] : MeasuredWords)
        if (text.find(words) != text.npos) return measured;
    return text.find("angle") != text.npos ? PMIDimensionSubType::Angle : PMIDimensionSubType::Unknown;
}

std::wstring stepSign(PMIDimensionSubType measured)
{
    switch (measured) {
    case PMIDimensionSubType::Radius:
    case PMIDimensionSubType::MinorRadius:
    case PMIDimensionSubType::MajorRadius:
        return L"R";
    case PMIDimensionSubType::SphericalRadius:
        return L"SR";
    case PMIDimensionSubType::Diameter:
    case PMIDimensionSubType::MinorDiameter:
    case PMIDimensionSubType::MajorDiameter:
    case PMIDimensionSubType::ThreadDiameter:
        return L"\u2300";
    case PMIDimensionSubType::SphericalDiameter:
        return L"S\u2300";
    case PMIDimensionSubType::Unknown:
    case PMIDimensionSubType::Distance:
    case PMIDimensionSubType::Length:
    case PMIDimensionSubType::Thickness:
    case PMIDimensionSubType::Depth:
    case PMIDimensionSubType::Angle:
    case PMIDimensionSubType::CurvedDistance:
    case PMIDimensionSubType::OrientedAngle:
        break;
    }
    return {};
}

bool isStepAngle(PMIDimensionSubType measured)
{
    return measured == PMIDimensionSubType::Angle || measured == PMIDimensionSubType::OrientedAngle;
}

StepPictureKind stepPictureKind(std::string_view name)
{
    auto const text = lowered(name);
    for (auto const& [word, kind] : PictureWords)
        if (text.find(word) != text.npos) return kind;
    return {};
}

std::wstring stepNumber(double value, int digits)
{
    wchar_t text[32];
    std::swprintf(text, std::size(text), L"%.*g", digits, value + 0.0); // no negative zero
    return text;
}
} // namespace NarMetaInfra
