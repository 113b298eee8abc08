#include "Picture.h"

#include "CameraPose.h"
#include "SceneDefaults.h"
#include "host_api.h"

#include <chrono>
#include <memory>

#include <QBuffer>

namespace zelview
{
namespace
{

/// Deletes a sprocket at the end of a block: handles alone own nothing.
template <class Sprocket> struct Scoped {
    Sprocket sprocket;

    explicit Scoped(Sprocket made) : sprocket(made) {}
    Scoped(Scoped const&) = delete;
    Scoped& operator=(Scoped const&) = delete;
    ~Scoped() { sprocket.Delete(); }
};

Refusal noGraphics(HPS::Canvas const& canvas)
{
    HPS::UTF8 cause;
    if (!canvas.ShowFailure(cause)) cause = "no picture could be made";
    return {ExitCode::NoGraphics, cause.Str()};
}

QImage imageOf(HPS::Picture const& pixels)
{
    // The fourth channel is how much the scene covers of a pixel; a picture file is opaque.
    QImage const view(pixels.pixels.data(), pixels.width, pixels.height, 4 * pixels.width,
                      QImage::Format_RGBX8888);
    return view.convertToFormat(QImage::Format_RGB888);
}

/// The colours of the current settings, and whether edges are seen.
std::unique_ptr<ZELVizCore::RenderingOptions> renderingOptions(ViewChoice const& choice)
{
    std::unique_ptr<ZELVizCore::RenderingOptions> options(ZELVizCore::RenderingOptions::CreateDefault());
    ZELVizCore::Settings const& settings = ZELVizCore::Settings::Current();
    options->SetDefaultBodyColor(settings.BodyColor);
    options->SetDefaultFaceColor(settings.BodyColor);
    options->SetDefaultEdgeColor(settings.EdgeColor);
    options->SetDefaultVertexColor(settings.VertexColor);
    options->SetDefaultTessEdgeColor(settings.TessEdgeColor);
    options->SetHighlightColor(settings.HighlightColor);
    options->SetDisplayEdges(choice.edges.value_or(options->GetDisplayEdges()));
    return options;
}

HPS::Rendering::Mode modeOf(ShadingMode mode)
{
    switch (mode) {
    case ShadingMode::Gouraud:
        return HPS::Rendering::Mode::Gouraud;
    case ShadingMode::Flat:
        return HPS::Rendering::Mode::Flat;
    case ShadingMode::Smooth:
        return HPS::Rendering::Mode::Phong;
    case ShadingMode::Wires:
        return HPS::Rendering::Mode::Wireframe;
    case ShadingMode::HiddenLine:
        return HPS::Rendering::Mode::HiddenLine;
    }
    return HPS::Rendering::Mode::Gouraud;
}

template <class To> To as(Triple const& from)
{
    return {from[0], from[1], from[2]};
}

void placeCamera(HPS::View& view, ViewChoice const& choice, HPS::Cuboid const& box, PixelSize size)
{
    HPS::Point const center = box.Center();
    SceneBounds const bounds{{center.x, center.y, center.z}, static_cast<float>(box.Diagonal() / 2)};
    float const aspect = static_cast<float>(size.width) / static_cast<float>(size.height);
    CameraPose const pose =
        cameraPose(choice, bounds, aspect, ZELVizCore::Settings::Current().ClassicalOrientation);
    using HPS::Camera::Projection;
    HPS::CameraKit kit;
    kit.SetPosition(as<HPS::Point>(pose.position))
        .SetTarget(as<HPS::Point>(pose.target))
        .SetUpVector(as<HPS::Vector>(pose.up))
        .SetProjection(pose.orthographic ? Projection::Orthographic : Projection::Perspective)
        .SetField(pose.fieldHeight() * aspect, pose.fieldHeight());
    view.SetCamera(kit);
}

} // namespace

std::variant<Picture, Refusal> drawPicture(HPS::Model const& model, PixelSize size, ViewChoice const& choice)
{
    auto const start = std::chrono::steady_clock::now();
    Picture picture;
    HPS::BoundingKit bounding;
    HPS::SimpleSphere sphere;
    bool const shown = HPS::KeyPath({model.GetSegmentKey()}).ShowNetBounding(bounding) &&
                       bounding.ShowVolume(sphere, picture.box) && picture.box.IsValid();
    if (!shown) return Refusal{ExitCode::NothingToShow, "there is nothing in it to show"};

    Scoped canvas(HPS::Factory::CreateOffScreenCanvas(size.width, size.height));
    Scoped view(HPS::Factory::CreateView());
    canvas.sprocket.AttachViewAsLayout(view.sprocket);
    namespace Defaults = ZelVizBase::SceneDefaults;
    Defaults::Setup(canvas.sprocket, view.sprocket, *renderingOptions(choice));
    HPS::WindowKey window = canvas.sprocket.GetWindowKey();
    Defaults::SetBackground(window, Defaults::Background::Of(ZELVizCore::Settings::Current()));
    if (choice.mode) view.sprocket.SetRenderingMode(modeOf(*choice.mode));
    view.sprocket.AttachModel(model);
    if (choice.placesCamera())
        placeCamera(view.sprocket, choice, picture.box, size);
    else if (!view.sprocket.FitWorld())
        return Refusal{ExitCode::NothingToShow, "everything in it is hidden"};
    picture.fitSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    HPS::Picture pixels;
    if (!canvas.sprocket.Update() || !canvas.sprocket.ReadPixels(pixels)) return noGraphics(canvas.sprocket);
    picture.image = imageOf(pixels);
    canvas.sprocket.ShowUpdateReport(picture.report);
    return picture;
}

QByteArray encodePng(QImage const& image)
{
    // Four fifths of the way to no compression at all: a fifth of the time for files a little larger.
    constexpr int Quality = 80;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG", Quality)) bytes.clear();
    return bytes;
}

} // namespace zelview
