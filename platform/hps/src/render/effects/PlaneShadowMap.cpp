#include "PlaneShadowMap.h"
#include "effect_bindings.h"
#include "full_screen.h"
#include "gaussian.h"
#include "plane_quad.h"
#include "shadow_camera.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

constexpr double deviationOfPass = 0.5; ///< pixels of the map
constexpr double widestKernel = 3;      ///< deviation in pixels; beyond it a smaller map blurs as well
constexpr unsigned smallestMap = 32, largestMap = 4096;

unsigned resolutionOf(PlaneShadow const& shadow)
{
    return std::clamp(shadow.resolution, smallestMap, largestMap);
}

double deviationOf(PlaneShadow const& shadow)
{
    return std::min(deviationOfPass * shadow.blurring, resolutionOf(shadow) / 16.0);
}

void blur(Surface const& from, Surface const& to, float x, float y, std::vector<BlurTap> const& taps)
{
    glUniform4f(0, x / float(from.width()), y / float(from.height()), 1, float(taps.size()));
    glUniform2fv(1, GLsizei(taps.size()), &taps[0].offset);
    from.read(PictureUnit);
    to.bind();
    paintFullScreen();
}

} // namespace

bool PlaneShadowMap::falls(PlaneShadow const& shadow)
{
    Vec3 const light = normalised(shadow.toLight, {});
    return std::abs(dot(light, shadow.plane.normal)) > 1e-3 && shadow.colour[3] > 0;
}

Viewing PlaneShadowMap::begin(Key const& key, Box const& casters)
{
    key_ = key;
    unsigned const resolution = resolutionOf(key.shadow);
    Camera camera = shadowCamera(key.shadow.toLight * -1, casters, nullptr);
    camera.fieldWidth = camera.fieldHeight =
        camera.fieldWidth / (1 - 2 * 3 * deviationOf(key.shadow) / double(resolution));
    auto const size = int(resolution);
    light_.emplace(camera, size, size, casters);

    if (covers_.empty() || covers_[0].width() != size) {
        covers_.clear();
        covers_.emplace_back(std::vector<unsigned>{GL_R8}).resize(size, size);
    }
    covers_[0].bind();
    float const nothing[4] = {0, 0, 0, 0};
    glClearNamedFramebufferfv(covers_[0].framebuffer(), GL_COLOR, 0, nothing);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_COLOR);
    return *light_;
}

void PlaneShadowMap::finish()
{
    double deviation = deviationOf(key_->shadow);
    std::size_t level = 0;
    if (!useFullScreen(ProgramName::Blur)) return;
    for (; deviation > widestKernel; ++level, deviation /= 2) {
        if (covers_.size() == level + 1) covers_.emplace_back(std::vector<unsigned>{GL_R8});
        int const size = std::max(covers_[level].width() / 2, 1);
        covers_[level + 1].resize(size, size);
        blur(covers_[level], covers_[level + 1], 0, 0, {{0, 1}});
    }
    while (covers_.size() > level + 1) covers_.pop_back();
    if (deviation <= 0.05) return;
    auto const taps = gaussianTaps(deviation);
    int const size = covers_[level].width();
    if (!between_) between_.emplace(std::vector<unsigned>{GL_R8});
    between_->resize(size, size);
    blur(covers_[level], *between_, 1, 0, taps);
    blur(*between_, covers_[level], 0, 1, taps);
}

void PlaneShadowMap::paint(Viewing const& view) const
{
    if (!useFullScreen(ProgramName::PlaneShadow)) return;
    MirrorPlane const& plane = key_->shadow.plane;
    double const slope = dot(plane.normal, light_->back);
    std::array<Vec3, 4> corners;
    for (int i = 0; i < 4; ++i) {
        Vec3 const p = light_->target + light_->right * (light_->halfWidth * ((i & 1) != 0 ? 1 : -1)) +
                       light_->up * (light_->halfHeight * ((i & 2) != 0 ? 1 : -1));
        corners[std::size_t(i)] = p - light_->back * (plane.height(p) / slope);
    }
    glUniform4fv(4, 1, key_->shadow.colour);
    covers_.back().read(PictureUnit);
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    paintInPlane(corners, view);
}

} // namespace HPS::render
