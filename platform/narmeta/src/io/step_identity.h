#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "open_cascade_document.h"

#include <STEPCAFControl_Reader.hxx>

namespace NarMetaInfra
{
/// Ties the labels and shapes of a translated STEP file to the products, occurrences and entity numbers of
/// its text.
void identifyStep(STEPCAFControl_Reader& reader, KernelDocument& document);

/// Enters the entity number of every topological shape that a transfer has made, and those of @p hidden
/// entities among them as hidden shapes.
void numberEntities(Handle(XSControl_WorkSession) const& work, KernelDocument& document,
                    std::unordered_set<int> const& hidden = {});
} // namespace NarMetaInfra
