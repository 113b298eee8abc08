#pragma once
#include <cstdint>

namespace HPS::render
{

/// How what is seen through is put together.
struct Transparency {
    enum class Order : std::uint8_t {
        Scene,          ///< as it comes
        Objects,        ///< whole objects from back to front, of each the far side first
        Triangles,      ///< triangles from back to front by their middles
        SplitTriangles, ///< the same after triangles were cut where they pass through each other: exact
        Peeled,         ///< for each pixel the nearest layers: exact, down to the last of them
        Weighted        ///< no order: a mean of all that covers a pixel, near things counting more
    };
    Order order = Order::Objects;
    unsigned layers = 8;        ///< at most; what lies deeper is blended unsorted
    float minimumArea = 0;      ///< peeling ends with a layer that covers no more
    bool areaInPercent = false; ///< of the window; else in pixels
    bool everySample = false;   ///< peel for every sample of a pixel, not once a pixel: smooth rims, dear

    bool operator==(Transparency const&) const = default;
};

} // namespace HPS::render
