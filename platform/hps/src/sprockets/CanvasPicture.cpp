#include "CanvasPicture.h"
#include "Device.h"
#include "Frame.h"
#include "MeshStore.h"
#include "PictureThread.h"
#include "SceneCompiler.h"
#include "ShaderLibrary.h"
#include "Stopwatch.h"
#include "SubwindowPainter.h"
#include "Target.h"
#include "subscriptions.h"
#include "warm_up.h"
#include <array>

namespace HPS
{
namespace
{

using render::Stopwatch;

/// Milliseconds up to which a picture follows the hand.
constexpr double fluent = 80;
/// Pixels on the screen below which a body is hardly seen in a picture that moves, and may be missed in one
/// that must come sooner.
constexpr double smallestAtFirst = 3, smallestAtMost = 24;

render::FaceStyle faceStyle(Rendering::Mode mode)
{
    switch (mode) {
    case Rendering::Mode::Gouraud:
    case Rendering::Mode::Phong:
        return render::FaceStyle::Smooth;
    case Rendering::Mode::Flat:
        return render::FaceStyle::Flat;
    case Rendering::Mode::HiddenLine:
        return render::FaceStyle::HiddenLine;
    case Rendering::Mode::Wireframe:
        return render::FaceStyle::None;
    }
    return render::FaceStyle::Smooth;
}

void add(UpdateReport& report, render::FrameCounts const& counts)
{
    report.triangles += counts.triangles;
    report.lineSegments += counts.lineSegments;
    report.markers += counts.markers;
    report.records += counts.records;
    report.culledRecords += counts.culledRecords;
    report.drawCalls += counts.calls;
}

/// All canvases draw with the one context that is lost.
void startAnew(render::Device& device)
{
    auto& canvases = Registry::instance().canvases;
    for (KeyIndex index : canvases.indices())
        if (auto const& picture = canvases.find(index)->picture) picture->forget();
    bool const opened = device.reopen();
    scene::raiseWarning(opened ? UTF8("The graphics device was reset; pictures are drawn anew.")
                               : UTF8(device.failure()));
}

} // namespace

CanvasPicture::CanvasPicture() = default;
CanvasPicture::~CanvasPicture()
{
    if (target_ || quick_ || !layers_.empty()) PictureThread::instance().run([this] { forget(); });
}

void CanvasPicture::matchLayers(LayoutRecord const* layout)
{
    std::size_t const count = layout != nullptr ? layout->layers.size() : 0;
    bool same = layers_.size() == count;
    for (std::size_t i = 0; same && i < count; ++i) same = layers_[i].view == layout->layers[i].view;
    if (same) return;
    layers_.clear();
    for (std::size_t i = 0; i < count; ++i)
        layers_.push_back({layout->layers[i].view, std::make_unique<render::SceneCompiler>(),
                           std::make_unique<render::Frame>(), std::make_unique<render::SubwindowPainter>()});
    drawn_ = false;
    unseen_ = Changed::Anything;
}

CanvasPicture::Changed CanvasPicture::compile(CanvasRecord const& canvas, LayoutRecord const& layout,
                                              bool fromScratch, UpdateReport& report)
{
    Changed changed = Changed::Nothing;
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        Layer& layer = layers_[i];
        auto* const view = Registry::instance().find(layer.view);
        if (view == nullptr) continue;
        followCamera(*view);
        LayoutRecord::Layer const& place = layout.layers[i];
        std::array const path{canvas.window.Index(), canvas.include.Index(), layout.segment.Index(),
                              place.segment.Index(), place.include.Index(),  view->segment.Index()};
        auto const result = layer.compiler->update(path, fromScratch, faceStyle(view->mode));
        if (result.changed)
            changed = std::max(changed, result.onlyHighlight ? Changed::Highlights : Changed::Anything);
        report.compiledViews += result.listMade ? 1 : 0;
        report.uploadedMeshes += result.uploadedMeshes;
        report.uploadMilliseconds += result.uploadMilliseconds;
    }
    return changed;
}

bool CanvasPicture::draw(render::Target& target, bool highlightsOnly, UpdateReport& report)
{
    using render::Ground;
    if (layers_.empty()) {
        render::Frame().draw(target, {}, {});
        return true;
    }
    bool whole = true;
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        render::Scene scene = layers_[i].compiler->scene();
        scene.background.shown = i == 0;
        scene.quality = quality_;
        scene.smallest = quality_ == render::Quality::Interactive ? smallest_ : 0;
        // A second layer lies over the highlights of the first, so that there is no ground of one alone.
        render::Frame& frame = *layers_[i].frame;
        bool const keeps = keepsGround_ && layers_.size() == 1 && quality_ == render::Quality::Resting;
        Ground ground = keeps ? Ground::DrawAndKeep : Ground::Draw;
        if (keeps && highlightsOnly && frame.keepsGroundOf(target)) ground = Ground::TakeKept;
        if (!keeps) frame.dropGround();
        whole = ground != Ground::TakeKept;
        add(report, frame.draw(target, layers_[i].compiler->list(), scene, ground));
        add(report, layers_[i].subwindows->draw(target, layers_[i].compiler->subwindows(), scene));
    }
    return whole;
}

// There is no clock behind this: the last picture at rest tells what one costs.
render::Quality CanvasPicture::qualityFor(UpdateRequest const& request) const
{
    bool const late = request.interacting && restingMilliseconds_ > fluent;
    bool const tooLong = request.timeLimit >= 0 && restingMilliseconds_ > request.timeLimit * 1000;
    return late || tooLong ? render::Quality::Interactive : render::Quality::Resting;
}

void CanvasPicture::learn(double milliseconds)
{
    if (quality_ == render::Quality::Resting) {
        restingMilliseconds_ = milliseconds;
        smallest_ = smallestAtFirst;
    } else if (milliseconds > fluent) {
        smallest_ = std::min(smallest_ * 2, smallestAtMost);
    } else if (milliseconds < fluent / 4) {
        smallest_ = std::max(smallest_ / 2, smallestAtFirst);
    }
}

void CanvasPicture::forget()
{
    layers_.clear();
    target_.reset();
    quick_.reset();
    shown_ = nullptr;
    drawn_ = memoryTold_ = false;
    unseen_ = Changed::Anything;
}

std::string CanvasPicture::update(CanvasRecord const& canvas, UpdateRequest const& request,
                                  UpdateReport& report)
{
    render::Device& device = render::Device::instance();
    std::string cause = attempt(canvas, request, report);
    if (!device.lost()) return cause;
    startAnew(device);
    return attempt(canvas, request, report);
}

std::string CanvasPicture::attempt(CanvasRecord const& canvas, UpdateRequest const& request,
                                   UpdateReport& report)
{
    using Window::UpdateType;
    report = {};
    isNew_ = false;
    Stopwatch start;
    render::Device& device = render::Device::instance();
    if (!device.makeCurrent() || device.lost()) return device.failure();
    if (target_ == nullptr) report.startMilliseconds = start.milliseconds();

    Stopwatch compiling;
    auto const* const layout = Registry::instance().find(canvas.layout);
    matchLayers(layout);
    Changed const changed = layout != nullptr
                                ? compile(canvas, *layout, request.type == UpdateType::Exhaustive, report)
                                : Changed::Nothing;
    report.compileMilliseconds = compiling.milliseconds();
    // Until there is a new picture all changes count together.
    unseen_ = drawn_ ? changed : std::max(unseen_, changed);
    if (changed != Changed::Nothing) drawn_ = false;
    if (request.type == UpdateType::CompileOnly) return {};

    Stopwatch drawing;
    if (target_ == nullptr) target_ = render::firstTarget();
    render::Quality const quality = qualityFor(request);
    bool const asBefore = shown_ != nullptr && drawn_ && shown_->width() == canvas.width &&
                          shown_->height() == canvas.height && (quality_ == quality || !restDue());
    bool const onDemand = request.type == UpdateType::Default || request.type == UpdateType::Refresh;
    if (asBefore && onDemand) return {};
    quality_ = quality;
    bool const quick = quality == render::Quality::Interactive;
    if (quick && quick_ == nullptr) quick_ = std::make_unique<render::Target>();
    render::Target& target = quick ? *quick_ : *target_;
    bool const highlightsOnly = shown_ == &target && onDemand && unseen_ == Changed::Highlights;
    keepsGround_ = keepsGround_ || highlightsOnly;
    target.resize(canvas.width, canvas.height, quick ? 1 : canvas.samples);
    bool const whole = draw(target, highlightsOnly, report);
    unseen_ = Changed::Nothing;
    target.resolve();
    shown_ = &target;
    drawn_ = isNew_ = true;
    report.drawMilliseconds = drawing.milliseconds();
    if (whole) learn(report.drawMilliseconds);
    return faults();
}

std::string CanvasPicture::faults()
{
    if (render::MeshStore::instance().outOfMemory() && !memoryTold_) {
        memoryTold_ = true;
        scene::raiseWarning("The graphics memory does not hold the whole scene; what fits is drawn.");
    }
    std::string const& refused = render::ShaderLibrary::instance().failure();
    return refused.empty() ? std::string() : "A shader was refused: " + refused;
}

bool CanvasPicture::read(Picture& picture) const
{
    if (shown_ == nullptr || !render::Device::instance().makeCurrent()) return false;
    picture.width = shown_->width();
    picture.height = shown_->height();
    shown_->read(picture.pixels);
    return true;
}

} // namespace HPS
