#pragma once
#include <cstddef>
#include <hps/Sprocket.h>
#include <hps/View.h>

namespace HPS
{

class SegmentKey;

// Views one above the other, as a canvas shows them. Layers count from 0, the rearmost.
class Layout : public SprocketOf<HPS::Type::Layout>
{
public:
    using SprocketOf::SprocketOf;

    SegmentKey GetSegmentKey() const;

    Layout& AttachViewFront(View const& view);
    Layout& AttachViewBack(View const& view);
    // Takes the view out of every layer that shows it.
    Layout& DetachView(View const& view);

    std::size_t GetLayerCount() const;
    // Empty if there is no such layer.
    View GetAttachedView(std::size_t layer) const;
    View GetFrontView() const;
};

} // namespace HPS
