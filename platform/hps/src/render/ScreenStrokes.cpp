#include "ScreenStrokes.h"
#include "Instance.h"
#include <algorithm>
#include <atomic>

namespace HPS::render
{

std::optional<std::uint32_t> ScreenStrokes::place(std::shared_ptr<StrokeChains const> const& chains,
                                                  Mat4 const& toWorld)
{
    if (showings_.size() >= sweepAt_) sweep();
    auto const [found, isNew] = showings_.try_emplace({chains.get(), toWorld});
    if (isNew) {
        auto const count = std::uint32_t(chains->pieces.size());
        constexpr std::uint32_t limit = 1u << (32 - glyphShift);
        if (count > limit - used_) {
            showings_.erase(found);
            return std::nullopt;
        }
        found->second = {chains, toWorld, used_};
        used_ += count;
        static std::atomic<std::uint64_t> versions{0};
        version_ = ++versions;
    }
    return found->second.first;
}

// Places are not given out again, for instances may still name them; those of the last ones are.
void ScreenStrokes::sweep()
{
    std::erase_if(showings_, [](auto const& entry) { return entry.second.chains.use_count() == 1; });
    std::uint32_t used = 0;
    for (auto const& [key, showing] : showings_)
        used = std::max(used, showing.first + std::uint32_t(showing.chains->pieces.size()));
    used_ = used;
    sweepAt_ = std::max<std::size_t>(1024, 2 * showings_.size());
}

void ScreenStrokes::measure(Viewing const& v, double width, double height, std::vector<float>& lengths) const
{
    lengths.resize(used_);
    Mat4 const toView{v.right.x,
                      v.up.x,
                      v.back.x,
                      0,
                      v.right.y,
                      v.up.y,
                      v.back.y,
                      0,
                      v.right.z,
                      v.up.z,
                      v.back.z,
                      0,
                      -dot(v.target, v.right),
                      -dot(v.target, v.up),
                      -dot(v.target, v.back),
                      1};
    for (auto const& [key, showing] : showings_)
        measureOnScreen(*showing.chains, showing.toWorld * toView * v.projection, width, height,
                        std::span(lengths).subspan(showing.first));
}

} // namespace HPS::render
