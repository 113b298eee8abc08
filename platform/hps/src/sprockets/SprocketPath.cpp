#include "records.h"
#include <algorithm>
#include <hps/KeyPath.h>
#include <hps/SprocketPath.h>

namespace HPS
{

KeyPath SprocketPath::GetKeyPath() const
{
    Registry const& registry = Registry::instance();
    auto const* const canvas = registry.find(canvas_);
    if (canvas == nullptr) return {};
    KeyPath path; // grows at the leaf's end
    path.PushFront(canvas->window);
    if (layout_ == HPS::Layout()) return path;

    auto const* const layout = registry.find(layout_);
    if (layout == nullptr || !(canvas->layout == layout_)) return {};
    path.PushFront(canvas->include).PushFront(layout->segment);
    if (view_ == HPS::View()) return path;

    auto const* const view = registry.find(view_);
    auto const layer = std::find_if(layout->layers.begin(), layout->layers.end(),
                                    [&](LayoutRecord::Layer const& l) { return l.view == view_; });
    if (view == nullptr || layer == layout->layers.end()) return {};
    path.PushFront(layer->segment).PushFront(layer->include).PushFront(view->segment);
    if (model_ == HPS::Model()) return path;

    auto const* const model = registry.find(model_);
    if (model == nullptr || !(view->model == model_)) return {};
    return path.PushFront(view->modelInclude).PushFront(view->include).PushFront(model->segment);
}

} // namespace HPS
