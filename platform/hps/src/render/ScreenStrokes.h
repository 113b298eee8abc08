#pragma once
#include "StrokeChains.h"
#include "Viewing.h"
#include <map>
#include <memory>
#include <optional>

namespace HPS::render
{

/// Chains whose patterns count in pixels: where their lengths on the screen stand in one common array. A
/// showing keeps its place as long as anyone else holds its chains.
class ScreenStrokes
{
public:
    /// The place of the first length; nothing once the instances have no room for the number.
    std::optional<std::uint32_t> place(std::shared_ptr<StrokeChains const> const& chains,
                                       Mat4 const& toWorld);

    bool empty() const { return showings_.empty(); }
    /// Differs whenever a showing was added, from that of every other object too.
    std::uint64_t version() const { return version_; }
    /// All lengths, as the window shows them.
    void measure(Viewing const& viewing, double width, double height, std::vector<float>& lengths) const;

private:
    struct Showing {
        std::shared_ptr<StrokeChains const> chains;
        Mat4 toWorld;
        std::uint32_t first;
    };
    void sweep();

    std::map<std::pair<StrokeChains const*, Mat4>, Showing> showings_;
    std::uint32_t used_ = 0;
    std::size_t sweepAt_ = 1024;
    std::uint64_t version_ = 0;
};

} // namespace HPS::render
