#include "CanvasPicture.h"
#include "Device.h"
#include "Frame.h"
#include "SceneCompiler.h"
#include "ShaderLibrary.h"
#include "Stopwatch.h"
#include "Target.h"
#include "warm_up.h"
#include <array>

namespace HPS
{
namespace
{

using render::Stopwatch;

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

} // namespace

CanvasPicture::CanvasPicture() = default;
CanvasPicture::~CanvasPicture() = default;

void CanvasPicture::matchLayers(LayoutRecord const* layout)
{
    std::size_t const count = layout != nullptr ? layout->layers.size() : 0;
    bool same = layers_.size() == count;
    for (std::size_t i = 0; same && i < count; ++i) same = layers_[i].view == layout->layers[i].view;
    if (same) return;
    layers_.clear();
    for (std::size_t i = 0; i < count; ++i)
        layers_.push_back({layout->layers[i].view,
                           {},
                           std::make_unique<render::SceneCompiler>(),
                           std::make_unique<render::Frame>()});
    drawn_ = false;
}

bool CanvasPicture::compile(CanvasRecord const& canvas, LayoutRecord const& layout, bool fromScratch,
                            UpdateReport& report)
{
    bool changed = false;
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        Layer& layer = layers_[i];
        auto const* const view = Registry::instance().find(layer.view);
        if (view == nullptr) continue;
        LayoutRecord::Layer const& place = layout.layers[i];
        std::array const path{canvas.window.Index(), canvas.include.Index(), layout.segment.Index(),
                              place.segment.Index(), place.include.Index(),  view->segment.Index()};
        auto const result = layer.compiler->update(path, fromScratch);
        changed = changed || result.changed || layer.mode != view->mode;
        layer.mode = view->mode;
        report.compiledViews += result.listMade ? 1 : 0;
        report.uploadedMeshes += result.uploadedMeshes;
        report.uploadMilliseconds += result.uploadMilliseconds;
    }
    return changed;
}

void CanvasPicture::draw(UpdateReport& report)
{
    if (layers_.empty()) {
        render::Frame().draw(*target_, {}, {});
        return;
    }
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        render::Scene scene = layers_[i].compiler->scene();
        scene.background.shown = i == 0;
        scene.faceStyle = faceStyle(layers_[i].mode);
        auto const counts = layers_[i].frame->draw(*target_, layers_[i].compiler->list(), scene);
        report.triangles += counts.triangles;
        report.lineSegments += counts.lineSegments;
        report.markers += counts.markers;
        report.records += counts.records;
        report.culledRecords += counts.culledRecords;
        report.drawCalls += counts.calls;
    }
}

std::string CanvasPicture::update(CanvasRecord const& canvas, Window::UpdateType type, UpdateReport& report)
{
    report = {};
    Stopwatch start;
    render::Device& device = render::Device::instance();
    if (!device.makeCurrent()) return device.failure();
    if (target_ == nullptr) report.startMilliseconds = start.milliseconds();

    Stopwatch compiling;
    auto const* const layout = Registry::instance().find(canvas.layout);
    matchLayers(layout);
    bool const changed =
        layout != nullptr && compile(canvas, *layout, type == Window::UpdateType::Exhaustive, report);
    report.compileMilliseconds = compiling.milliseconds();
    if (changed) drawn_ = false;
    if (type == Window::UpdateType::CompileOnly) return {};

    Stopwatch drawing;
    if (target_ == nullptr) target_ = render::firstTarget();
    if (target_->width() != canvas.width || target_->height() != canvas.height) drawn_ = false;
    if (drawn_ && type == Window::UpdateType::Default) return {};
    target_->resize(canvas.width, canvas.height, canvas.samples);
    draw(report);
    target_->resolve();
    report.drawMilliseconds = drawing.milliseconds();
    std::string const& refused = render::ShaderLibrary::instance().failure();
    drawn_ = refused.empty();
    return drawn_ ? std::string() : "A shader was refused: " + refused;
}

bool CanvasPicture::read(Picture& picture) const
{
    if (target_ == nullptr || !render::Device::instance().makeCurrent()) return false;
    picture.width = target_->width();
    picture.height = target_->height();
    target_->read(picture.pixels);
    return true;
}

} // namespace HPS
