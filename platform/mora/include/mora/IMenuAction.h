#pragma once
#include <mora/RenderId.h>

namespace MoraCore
{

/// Entry of a context menu: works on the tree node it is called with.
class IMenuAction
{
public:
    /// True when the action was carried out.
    virtual bool operator()(ZELVizCore::RenderId const& id) = 0;
    virtual ~IMenuAction() = default;
};

} // namespace MoraCore
