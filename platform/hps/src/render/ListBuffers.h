#pragma once
#include "Buffer.h"
#include "DrawList.h"

namespace HPS::render
{

/// What a draw list has on the device, brought up to date by what changed in it alone.
class ListBuffers
{
public:
    /// Gives the number of instances that went to the device.
    std::uint32_t upload(DrawList const& list);

    /// Makes the list's materials those that programs read.
    void bindMaterials() const;

    unsigned instances() const { return instances_.name(); }

private:
    std::uint32_t uploadInstances(DrawList const& list);

    Buffer instances_, materials_, layers_;
    std::size_t capacity_ = 0;                                      ///< of `instances_`
    std::uint64_t version_ = 0, sorted_ = 0, materialsVersion_ = 0; ///< of what is in them
};

} // namespace HPS::render
