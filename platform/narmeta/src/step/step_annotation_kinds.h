#pragma once

#include "StepSemantics.h"

#include <narmeta/pmi/PMIAnnotationView.h>

#include <variant>

namespace NarMetaInfra
{
/// An annotation as it goes into the views that show it.
using AnyAnnotation =
    std::variant<std::shared_ptr<NarMetaPmi::PMINote>, std::shared_ptr<NarMetaPmi::PMIDatum>,
                 std::shared_ptr<NarMetaPmi::PMIDatumTarget>, std::shared_ptr<NarMetaPmi::PMIGDT>,
                 std::shared_ptr<NarMetaPmi::PMIDimension>, std::shared_ptr<NarMetaPmi::PMIRoughness>>;

NarMetaPmi::PMIAnnotation& base(AnyAnnotation const& annotation);
void addTo(NarMetaPmi::PMIAnnotationView& view, AnyAnnotation const& annotation);

/// @p name: empty takes that of the meaning, or its kind and text.
AnyAnnotation makeAnnotation(StepMeaning const& meaning, NarMeta::Id id, std::wstring name);
/// An annotation of which the file only has a picture, by the picture's name.
AnyAnnotation makeAnnotation(std::string_view pictureName, NarMeta::Id id, std::wstring const& name);
} // namespace NarMetaInfra
