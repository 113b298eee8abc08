#include "caller_fault.h"
#include <mora/ARendererTree.h>

namespace MoraCore
{

void ARendererTree::ClearAll()
{
    rendered_ = false;
    ClearAllImpl();
}

TreeBuilder& ARendererTree::getTreeBuilder() const
{
    if (view_) return view_->GetTreeBuilder();
    callerFault("ARendererTree::getTreeBuilder", "no view");
    static TreeBuilder nowhere;
    nowhere.Clear();
    return nowhere;
}

} // namespace MoraCore
