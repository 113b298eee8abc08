#include "model_check.h"

#include "structure_check.h"

namespace NarMetaInfra
{

void CheckModel(ZELProductStructure& model, std::vector<std::wstring>& warnings)
{
    Faults faults;
    ListAllReferences(model);
    DropBadPlacings(model, faults);
    BreakCycles(model, faults);
    for (auto const& reference : model.GetReferences()) {
        DropBadBodies(*reference, faults);
        if (reference->GetSG()) DropBadNodes(*reference->GetSG(), reference->GetReferenceName(), faults);
    }
    if (model.GetSG()) DropBadNodes(*model.GetSG(), model.GetProductName(), faults);
    MakeNamesValid(model);
    faults.AppendTo(warnings);
}

} // namespace NarMetaInfra
