#include "WindowSearch.h"
#include "read_scene.h"
#include "records.h"
#include <hps/SubwindowKit.h>
#include <hps/WindowKey.h>
#include <map>

namespace HPS::selection
{

using namespace scene;

namespace
{

SelectionOptionsData optionsOf(Key const& window)
{
    SelectionOptionsKit kit;
    WindowKey(window).ShowSelectionOptions(kit);
    return kit.data();
}

/// The part of what is around it that a subwindow takes, as it is drawn.
PixelArea areaOf(SubwindowData const& data, PixelArea const& around)
{
    auto const& [position, offsets, type] = *data.subwindow;
    auto at = [](float share, double size, int offset) {
        double const inside = std::clamp(double(std::isfinite(share) ? share : 0.0f), -1.0, 1.0);
        return std::clamp(std::round((inside + 1) / 2 * size) + offset, 0.0, size);
    };
    double const width = around.right - around.left, height = around.bottom - around.top;
    return {around.left + at(position.left, width, offsets.left),
            around.bottom - at(position.top, height, offsets.top),
            around.left + at(position.right, width, offsets.right),
            around.bottom - at(position.bottom, height, offsets.bottom)};
}

} // namespace

WindowSearch::WindowSearch(Key const& window, SelectionOptionsKit const& options)
    : scene_(PickScene::instance()), options_(options.data(), optionsOf(window))
{
    scene_.refresh();
    addViews(window);
}

// As the canvas draws them: each layer from its view's segment on, with the camera of the view.
void WindowSearch::addViews(Key const& window)
{
    Registry const& registry = Registry::instance();
    auto const* const canvas = registry.findWindow(window.Index());
    if (canvas == nullptr) return;
    area_ = PixelArea{0, 0, double(canvas->width), double(canvas->height)};
    auto const* const layout = registry.find(canvas->layout);
    if (layout == nullptr) return;
    int order = 0;
    for (LayoutRecord::Layer const& layer : layout->layers) {
        order += 1000; // more than there are subwindows one in another
        auto const* const view = registry.find(layer.view);
        auto const* const segment = view != nullptr ? store().resolve<SegmentRecord>(view->segment) : nullptr;
        if (segment == nullptr) continue;
        NetAttributes above = scene_.fold.root();
        std::uint32_t step = PathSteps::none;
        for (Key const& key :
             KeyArray{canvas->window, canvas->include, layout->segment, layer.segment, layer.include}) {
            if (auto const* const record = store().resolve<SegmentRecord>(key))
                above = scene_.fold.step(above, *record);
            step = steps_.add(key.Index().slot, step);
        }
        NetAttributes const net = scene_.fold.step(above, *segment);
        render::Camera const camera = render::readCamera({*net.state, *net.state});
        panes_.push_back({{segment, above, step, {}}, camera, PickFrame(camera, *area_), {}, order});
    }
}

void WindowSearch::addWindow(Pane const& around, SearchTop const& top)
{
    auto const& data = valuesOf<SubwindowData>(top.segment->kit(KitKind::Subwindow));
    PixelArea const area = areaOf(data, around.frame.area());
    if (area.empty()) return;
    render::Camera camera = around.camera;
    if (top.segment->kit(KitKind::Camera) != nullptr) {
        NetState own = *scene_.fold.root().state;
        for (KitPointer const& kit : top.segment->kits)
            if (kit->kind == KitKind::Camera) own.kits[std::size_t(KitKind::Camera)] = kit;
        camera = render::readCamera({own, own});
    }
    panes_.push_back({top, camera, PickFrame(camera, area), {}, around.order + 1});
}

void WindowSearch::search(Ask const& ask)
{
    for (std::size_t i = 0; i < panes_.size(); ++i) { // subwindows are added meanwhile
        Pane& pane = panes_[i];
        pane.probe = ask(pane.frame);
        std::vector<SearchTop> windows;
        if (pane.probe)
            SceneSearch(scene_, options_, *pane.probe, steps_).run(pane.top, windows, [&](Found&& found) {
                found_.push_back({&pane, std::move(found)});
            });
        for (SearchTop const& top : windows) addWindow(pane, top);
    }
}

KeyPath WindowSearch::pathOf(Found const& found) const
{
    KeyPath path = steps_.pathOf(found.segment);
    if (options_.level != Selection::Level::Segment) path.PushFront(Key(store().indexOf(found.geometry)));
    return path;
}

// Of all geometry of a segment on one path what comes first stands for it.
void WindowSearch::joinSegments()
{
    std::map<std::uint32_t, std::size_t> places; // by step: each is one visit of a segment
    std::vector<PaneFound> joined;
    for (PaneFound& entry : found_) {
        auto const [place, isNew] = places.try_emplace(entry.found.segment, joined.size());
        if (isNew) {
            joined.push_back(std::move(entry));
            continue;
        }
        Found& known = joined[place->second].found;
        bool const anyArea = known.hasArea || entry.found.hasArea;
        auto rank = [](Found const& f) { return std::tuple(!f.overlay, f.first, f.second); };
        if (rank(entry.found) < rank(known)) known = std::move(entry.found);
        known.hasArea = anyArea;
    }
    found_ = std::move(joined);
}

void WindowSearch::sort()
{
    if (options_.sorting == Selection::Sorting::Off) return;
    auto rank = [](PaneFound const& f) {
        return std::tuple(-f.pane->order, !f.found.overlay, f.found.first, f.found.second);
    };
    std::stable_sort(found_.begin(), found_.end(),
                     [&](PaneFound const& a, PaneFound const& b) { return rank(a) < rank(b); });
}

// The faces that are in front at some pixel of the area asked about.
std::vector<KeyPath> WindowSearch::facesSeen(Pane const& pane)
{
    constexpr double most = 16; // in each direction
    std::vector<KeyPath> seen;
    auto const& area = pane.probe->area();
    if (!area) return seen;
    auto const columns = std::clamp(std::ceil(area->right - area->left), 1.0, most);
    auto const rows = std::clamp(std::ceil(area->bottom - area->top), 1.0, most);
    for (double row = 0; row < rows; ++row)
        for (double column = 0; column < columns; ++column) {
            Pixel const pixel{area->left + (area->right - area->left) * (column + 0.5) / columns,
                              area->top + (area->bottom - area->top) * (row + 0.5) / rows};
            Probe const probe = Probe::atPixel(pane.frame, pixel);
            auto const face = SceneSearch(scene_, options_, probe, steps_).nearestFace(pane.top);
            if (!face) continue;
            Found found{};
            found.segment = face->segment;
            found.geometry = face->geometry;
            if (KeyPath path = pathOf(found); std::find(seen.begin(), seen.end(), path) == seen.end())
                seen.push_back(std::move(path));
        }
    return seen;
}

bool WindowSearch::isSeen(PaneFound const& entry, std::vector<KeyPath> const& seen)
{
    Found const& found = entry.found;
    if (found.overlay) return true;
    if (found.hasArea && std::find(seen.begin(), seen.end(), pathOf(found)) != seen.end()) return true;
    PickFrame const& frame = entry.pane->frame;
    auto const pixel = frame.pixelOf(found.place);
    if (!pixel) return false;
    Probe const probe = entry.pane->probe->isAlongRay() ? *entry.pane->probe : Probe::atPixel(frame, *pixel);
    auto const face = SceneSearch(scene_, options_, probe, steps_).nearestFace(entry.pane->top);
    return !face || found.depth <= face->depth + frame.worldPerPixel(found.depth);
}

std::size_t WindowSearch::run(Ask const& ask, SelectionResults& results)
{
    found_.clear();
    search(ask);
    if (options_.level == Selection::Level::Segment) joinSegments();
    sort();
    std::map<Pane const*, std::vector<KeyPath>> seen;
    bool const visual = options_.algorithm == Selection::Algorithm::Visual;
    std::vector<SelectionItem> items;
    for (PaneFound& entry : found_) {
        if (items.size() > options_.relatedLimit) break;
        if (visual) {
            auto const [place, isNew] = seen.try_emplace(entry.pane);
            if (isNew) place->second = facesSeen(*entry.pane);
            if (!isSeen(entry, place->second)) continue;
        }
        Found& found = entry.found;
        items.emplace_back(pathOf(found),
                           Point(float(found.place.x), float(found.place.y), float(found.place.z)),
                           std::move(found.parts));
    }
    results = SelectionResults(std::move(items));
    return results.GetCount();
}

} // namespace HPS::selection
