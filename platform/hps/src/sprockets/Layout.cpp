#include "records.h"
#include <algorithm>
#include <hps/Layout.h>

namespace HPS
{
namespace
{

LayoutRecord::Layer makeLayer(LayoutRecord& layout, View const& view)
{
    SegmentKey segment = layout.segment.Subsegment();
    return {view, segment, segment.IncludeSegment(view.GetSegmentKey())};
}

} // namespace

SegmentKey Layout::GetSegmentKey() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->segment : SegmentKey();
}

Layout& Layout::AttachViewFront(View const& view)
{
    auto* const record = Registry::instance().find(*this);
    if (record != nullptr && !view.Empty()) record->layers.push_back(makeLayer(*record, view));
    return *this;
}

Layout& Layout::AttachViewBack(View const& view)
{
    auto* const record = Registry::instance().find(*this);
    if (record != nullptr && !view.Empty())
        record->layers.insert(record->layers.begin(), makeLayer(*record, view));
    return *this;
}

Layout& Layout::DetachView(View const& view)
{
    auto* const record = Registry::instance().find(*this);
    if (record == nullptr) return *this;
    std::erase_if(record->layers, [&](LayoutRecord::Layer& layer) {
        if (!(layer.view == view)) return false;
        layer.segment.Delete();
        return true;
    });
    return *this;
}

std::size_t Layout::GetLayerCount() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->layers.size() : 0;
}

View Layout::GetAttachedView(std::size_t layer) const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr && layer < record->layers.size() ? record->layers[layer].view : View();
}

View Layout::GetFrontView() const
{
    std::size_t const count = GetLayerCount();
    return count > 0 ? GetAttachedView(count - 1) : View();
}

} // namespace HPS
