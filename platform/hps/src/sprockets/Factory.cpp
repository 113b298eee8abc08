#include "CanvasPicture.h"
#include "InputRouter.h"
#include "InteractionWatch.h"
#include "OperatorStack.h"
#include "Presenter.h"
#include "merge.h"
#include "records.h"
#include "structure.h"
#include <hps/Database.h>
#include <hps/Factory.h>
#include <hps/WindowKey.h>

namespace HPS::Factory
{
namespace
{

template <class Handle, class Record> std::vector<Handle> living(SlotTable<Record> const& table)
{
    std::vector<Handle> handles;
    for (KeyIndex index : table.indices()) handles.emplace_back(index);
    return handles;
}

Registry& registry()
{
    return Registry::instance();
}

} // namespace

Model CreateModel(UTF8 const& name)
{
    auto record = std::make_unique<ModelRecord>();
    record->name = name;
    record->segment = Database::CreateRootSegment();
    record->library = Database::CreateRootSegment();
    record->portfolio = Database::CreatePortfolio();
    return Model(registry().models.add(std::move(record)));
}

View CreateView(UTF8 const& name)
{
    auto record = std::make_unique<ViewRecord>();
    record->name = name;
    record->segment = Database::CreateRootSegment();
    record->modelInclude = record->segment.Subsegment("model");
    View const view(registry().views.add(std::move(record)));
    registry().find(view)->operators = std::make_unique<OperatorStack>(view);
    return view;
}

Layout CreateLayout(UTF8 const& name)
{
    auto record = std::make_unique<LayoutRecord>();
    record->name = name;
    record->segment = Database::CreateRootSegment();
    return Layout(registry().layouts.add(std::move(record)));
}

Canvas CreateCanvas(WindowHandle window, UTF8 const& name, ApplicationWindowOptionsKit const& options)
{
    auto record = std::make_unique<CanvasRecord>();
    record->name = name;
    record->window = SegmentKey(
        scene::store().indexOf(scene::createSegment(nullptr, {}, HPS::Type::ApplicationWindowKey)));
    bool smooth = true;
    unsigned int samples = 4;
    options.ShowAntiAliasCapable(smooth, samples);
    record->options = ApplicationWindowOptionsKit::GetDefault().SetPlatformData(std::int64_t(window));
    record->options.edit([&](ApplicationWindowOptionsData& data) { scene::merge(data, options.data()); });
    record->samples = smooth ? int(std::min(samples, 64u)) : 1;
    record->picture = std::make_unique<CanvasPicture>();
    record->presenter = makePresenter(window);
    CanvasRecord& made = *record;
    Canvas const canvas(registry().canvases.add(std::move(record)));
    made.watch =
        std::make_unique<InteractionWatch>(canvas.Index(), canvas.GetWindowKey().GetEventDispatcher());
    made.input = std::make_unique<InputRouter>(canvas);
    return canvas;
}

Canvas CreateOffScreenCanvas(int width, int height, UTF8 const& name,
                             ApplicationWindowOptionsKit const& options)
{
    Canvas canvas = CreateCanvas(0, name, options);
    if (canvas.SetSize(width, height)) return canvas;
    canvas.Delete();
    return {};
}

std::vector<Model> GetModels()
{
    return living<Model>(registry().models);
}
std::vector<View> GetViews()
{
    return living<View>(registry().views);
}
std::vector<Layout> GetLayouts()
{
    return living<Layout>(registry().layouts);
}
std::vector<Canvas> GetCanvases()
{
    return living<Canvas>(registry().canvases);
}

} // namespace HPS::Factory
