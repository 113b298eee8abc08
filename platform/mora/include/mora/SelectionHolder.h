#pragma once
#include <mora/RenderId.h>
#include <set>

namespace ZELVizCore
{

/// The set of tree nodes that are selected in one view.
class SelectionHolder
{
public:
    void Add(RenderId const& id) { ids_.insert(id); }
    bool Contains(RenderId const& id) const { return ids_.contains(id); }
    void Clear() { ids_.clear(); }

    std::set<RenderId> const& Ids() const { return ids_; }

private:
    std::set<RenderId> ids_;
};

} // namespace ZELVizCore
