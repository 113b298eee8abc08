#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "open_cascade_document.h"

#include <STEPCAFControl_Reader.hxx>

namespace NarMetaInfra
{
/// Ties the labels and shapes of a translated STEP file to the products, occurrences and entity numbers of
/// its text.
void identifyStep(STEPCAFControl_Reader& reader, KernelDocument& document);

/// Enters the entity number of every topological shape that a transfer has made.
void numberEntities(Handle(XSControl_WorkSession) const& work, KernelDocument& document);
} // namespace NarMetaInfra
