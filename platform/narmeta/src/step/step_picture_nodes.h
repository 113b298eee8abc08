#pragma once

#include "StepPictures.h"

#include <narmeta/visu/Node.h>

namespace NarMetaInfra
{
/// A picture as a representation of the model, named like its annotation.
std::shared_ptr<NarMetaVisu::PmiRep> makeStepPicture(StepPicture const& picture, NarMeta::Id id,
                                                     std::wstring const& name);
} // namespace NarMetaInfra
