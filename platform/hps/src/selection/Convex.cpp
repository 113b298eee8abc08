#include "Convex.h"

namespace HPS::selection
{

void Convex::clip(CutPlane const& plane)
{
    std::array<double, most> at;
    bool anyIn = false, anyOut = false;
    for (std::size_t i = 0; i < count_; ++i) {
        at[i] = plane.at(corners_[i]);
        (at[i] >= 0 ? anyIn : anyOut) = true;
    }
    if (!anyOut) return;
    if (!anyIn) {
        count_ = 0;
        return;
    }
    auto crossing = [&](std::size_t i, std::size_t k) {
        return corners_[i] + (corners_[k] - corners_[i]) * (at[i] / (at[i] - at[k]));
    };
    if (count_ == 2) {
        Vec3 const border = crossing(0, 1);
        corners_[at[0] >= 0 ? 1 : 0] = border;
        return;
    }
    std::array<Vec3, most + 1> kept;
    std::size_t count = 0;
    for (std::size_t i = 0; i < count_; ++i) {
        std::size_t const next = i + 1 < count_ ? i + 1 : 0;
        if (at[i] >= 0) kept[count++] = corners_[i];
        if ((at[i] >= 0) != (at[next] >= 0) && count < most) kept[count++] = crossing(i, next);
    }
    count_ = std::min(count, most);
    std::copy_n(kept.begin(), count_, corners_.begin());
}

} // namespace HPS::selection
