#include "CanvasPicture.h"
#include "InputRouter.h"
#include "OperatorStack.h"
#include "Presenter.h"
#include "records.h"
#include <hps/Sprocket.h>

namespace HPS
{
namespace
{

/// Calls `use` with the table that holds sprockets of a kind.
template <class F> auto withTable(Type kind, F const& use) -> decltype(use(Registry::instance().models))
{
    Registry& registry = Registry::instance();
    if (kind == Type::Model) return use(registry.models);
    if (kind == Type::View) return use(registry.views);
    if (kind == Type::Layout) return use(registry.layouts);
    if (kind == Type::Canvas) return use(registry.canvases);
    return {};
}

// A record's own segments go; includes of them elsewhere go with them.
void deleteParts(ModelRecord& model)
{
    model.segment.Delete();
    model.library.Delete();
    model.portfolio.Delete();
}
void deleteParts(ViewRecord& view)
{
    view.operators->clear(); // while there still is a view for them to leave
    view.segment.Delete();
    view.corners.triad.portfolio.Delete();
    view.corners.cube.portfolio.Delete();
}
void deleteParts(LayoutRecord& layout)
{
    layout.segment.Delete();
}
void deleteParts(CanvasRecord& canvas)
{
    canvas.window.Delete();
}

} // namespace

Type Sprocket::Type() const
{
    bool const lives = withTable(kind_, [&](auto const& table) { return table.find(index_) != nullptr; });
    return lives ? kind_ : HPS::Type::None;
}

UTF8 Sprocket::Name() const
{
    return withTable(kind_, [&](auto const& table) {
        auto const* const record = table.find(index_);
        return record != nullptr ? record->name : UTF8();
    });
}

void Sprocket::Delete()
{
    withTable(kind_, [&](auto& table) {
        if (auto* const record = table.find(index_)) {
            deleteParts(*record);
            table.remove(index_);
        }
        return true;
    });
    // A layer without its view shows nothing.
    if (kind_ == HPS::Type::View)
        for (KeyIndex index : Registry::instance().layouts.indices()) Layout(index).DetachView(View(index_));
}

} // namespace HPS
