#pragma once

#include "Faults.h"
#include "model_check.h"

namespace NarMetaInfra
{

// The steps of CheckModel, in this order.

/// Instances of no reference, with numbers that are none, or flattened to a plane go.
void DropBadPlacings(ZELProductStructure& model, Faults& faults);
/// Lists references that are only reached through instances.
void ListAllReferences(ZELProductStructure& model);
/// Removes the instances that would put an assembly into itself.
void BreakCycles(ZELProductStructure& model, Faults& faults);
/// PIDs of references and instances become valid and unique, names and texts valid.
void MakeNamesValid(ZELProductStructure& model);
/// Faces, edges and vertices that cannot be drawn go, and bodies that are left with nothing.
void DropBadBodies(ZELReference& reference, Faults& faults);
/// The same for visualisation data.
void DropBadNodes(NarMetaVisu::SGContainer& container, std::wstring const& owner, Faults& faults);

} // namespace NarMetaInfra
