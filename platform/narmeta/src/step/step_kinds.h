#pragma once

#include <narmeta/pmi/PMIAnnotation.h>

#include <string>
#include <string_view>

namespace NarMetaInfra
{
/// Kind of a tolerance by the keyword of its entity.
struct StepToleranceKind {
    std::string_view keyword;
    NarMetaPmi::PMIToleranceType type;
};
extern StepToleranceKind const StepToleranceKinds[16];

/// What a dimension measures, by the name that the standard's users give it ("spherical radius", ...).
NarMetaPmi::PMIDimensionSubType stepMeasured(std::string_view name, bool isAngle);
/// Sign in front of the number: that of a diameter, R, ...
std::wstring stepSign(NarMetaPmi::PMIDimensionSubType measured);
bool isStepAngle(NarMetaPmi::PMIDimensionSubType measured);

/// Kind of an annotation whose meaning is not given, by the name of its picture ("linear dimension",
/// "datum target", ...). A note if the name says nothing.
struct StepPictureKind {
    NarMetaPmi::PMIAnnotationType type = NarMetaPmi::PMIAnnotationType::Note;
    bool isTarget = false;
    NarMetaPmi::PMIToleranceType tolerance = NarMetaPmi::PMIToleranceType::Unknown;
};
StepPictureKind stepPictureKind(std::string_view name);

/// Up to so many significant digits, no trailing zeros.
std::wstring stepNumber(double value, int digits = 6);
} // namespace NarMetaInfra
