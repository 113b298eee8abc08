#include "PlaneMirror.h"
#include "effect_bindings.h"
#include "full_screen.h"
#include "gaussian.h"
#include "mirror.h"
#include "plane_quad.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

constexpr double deviationOfPass = 0.75; ///< pixels of the mirrored picture
constexpr double largestDeviation = 20;
constexpr double planeSize = 50; ///< of the scene's size: a mirror without end, as far as one sees

} // namespace

PlaneMirror::PlaneMirror() : drawn_({GL_RGBA8}, GL_DEPTH_COMPONENT24), faded_({GL_RGBA8}) {}

Viewing PlaneMirror::seenFrom(Viewing const& view, MirrorPlane const& plane, Vec3 const& eye)
{
    Viewing mirror = view.mirrored(plane.normal, plane.offset);
    // What stands before the plane is behind it in the mirror. The plane is its own mirror image.
    MirrorPlane behind = plane;
    if (plane.height(eye) > 0) behind = {plane.normal * -1, -plane.offset};
    mirror.projection = withNearPlane(view.projection, inView(behind, view));
    return mirror;
}

void PlaneMirror::begin(PlaneReflection const& how, int width, int height)
{
    how_ = how;
    int const part = how.blurring > 0 ? 2 : 1; // what is softened anyway is drawn at half the size
    drawn_.resize((width + part - 1) / part, (height + part - 1) / part);
    faded_.resize(drawn_.width(), drawn_.height());
    float const nothing[4] = {0, 0, 0, 0}, farthest = 1;
    glDepthMask(GL_TRUE);
    glClearNamedFramebufferfv(drawn_.framebuffer(), GL_COLOR, 0, nothing);
    glClearNamedFramebufferfv(drawn_.framebuffer(), GL_DEPTH, 0, &farthest);
    drawn_.bind();
    glEnable(GL_DEPTH_TEST);
}

void PlaneMirror::finish(Viewing const& mirrored, double extent)
{
    if (!useFullScreen(ProgramName::ReflectionFade)) return;
    // In the mirrored view the plane stands where it stands in the real one.
    ViewPlane const plane = inView(how_.plane, mirrored);
    glUniform4f(0, float(plane.x), float(plane.y), float(plane.z), float(plane.offset));
    float const far = how_.fadeFar > how_.fadeNear ? how_.fadeFar : how_.fadeNear + float(extent);
    glUniform2f(1, how_.fadeNear, how_.fading ? 1 / std::max(far - how_.fadeNear, 1e-12f) : -1);
    drawn_.read(PictureUnit);
    drawn_.readDepth(DepthUnit);
    faded_.bind();
    paintFullScreen();
    if (how_.blurring == 0 || !useFullScreen(ProgramName::Blur)) return;

    auto const taps = gaussianTaps(std::min(deviationOfPass * how_.blurring, largestDeviation));
    if (!between_) between_.emplace(std::vector<unsigned>{GL_RGBA8});
    between_->resize(faded_.width(), faded_.height());
    glUniform2fv(1, GLsizei(taps.size()), &taps[0].offset);
    auto blur = [&](Surface const& from, Surface const& to, float x, float y) {
        glUniform4f(0, x / float(from.width()), y / float(from.height()), 1, float(taps.size()));
        from.read(PictureUnit);
        to.bind();
        paintFullScreen();
    };
    blur(faded_, *between_, 1, 0);
    blur(*between_, faded_, 0, 1);
}

void PlaneMirror::paint(Viewing const& view, Box const& bounds) const
{
    if (!useFullScreen(ProgramName::PlaneReflection)) return;
    MirrorPlane const& plane = how_.plane;
    Vec3 const any = std::abs(plane.normal.z) < 0.9 ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
    Vec3 const x = normalised(cross(any, plane.normal), {1, 0, 0}), y = cross(plane.normal, x);
    Vec3 const centre = bounds.centre(), foot = centre - plane.normal * plane.height(centre);
    double const size = planeSize * std::max(bounds.diagonal() + std::abs(plane.height(centre)), 1e-12);
    std::array<Vec3, 4> corners;
    for (int i = 0; i < 4; ++i)
        corners[std::size_t(i)] =
            foot + x * ((i & 1) != 0 ? size : -size) + y * ((i & 2) != 0 ? size : -size);
    glUniform4f(4, std::clamp(how_.opacity, 0.0f, 1.0f), 0, 0, 0);
    faded_.read(PictureUnit);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    paintInPlane(corners, view);
}

} // namespace HPS::render
