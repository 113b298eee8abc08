#include "Picture.h"

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

} // namespace

std::variant<Picture, Refusal> drawPicture(HPS::Model const& model, PixelSize size)
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
    std::unique_ptr<ZELVizCore::RenderingOptions> const options(
        ZELVizCore::RenderingOptions::CreateDefault());
    ZelVizBase::SceneDefaults::Setup(canvas.sprocket, view.sprocket, *options);
    view.sprocket.AttachModel(model);
    if (!view.sprocket.FitWorld()) return Refusal{ExitCode::NothingToShow, "everything in it is hidden"};
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
