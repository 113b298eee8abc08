#include "frame_block.h"
#include <algorithm>

namespace HPS::render
{
namespace
{

void put(float* out, Vec3 const& v, double w = 0)
{
    out[0] = float(v.x);
    out[1] = float(v.y);
    out[2] = float(v.z);
    out[3] = float(w);
}

} // namespace

FrameBlock frameBlock(Viewing const& viewing, int width, int height)
{
    FrameBlock block{};
    std::array const components{&Vec3::x, &Vec3::y, &Vec3::z};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        auto const c = components[axis];
        put(&block.rotation[axis * 4], {viewing.right.*c, viewing.up.*c, viewing.back.*c});
    }
    std::copy(viewing.projection.begin(), viewing.projection.end(), block.projection);
    put(block.target, viewing.target);
    put(block.eye, {0, 0, viewing.distance}, viewing.perspective ? 1 : 0);
    put(block.viewport, {double(width), double(height), 0});
    return block;
}

} // namespace HPS::render
