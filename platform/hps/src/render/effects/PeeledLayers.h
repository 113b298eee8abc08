#pragma once
#include "ShaderLibrary.h"
#include "Surface.h"
#include "Target.h"
#include "Transparency.h"
#include <cstdint>
#include <functional>

namespace HPS::render
{

/// Puts together what is seen through, the nearest layer of each pixel first, then the one behind it.
/// C. Everitt, "Interactive Order-Independent Transparency" (2001).
class PeeledLayers
{
public:
    PeeledLayers();
    ~PeeledLayers();

    /// Draws over what `target` holds within an area, as far as its depths leave it visible.
    /// `draw` draws all that is seen through, with the features of `features` added and with the blending and
    /// depth test that it finds; it is called once a layer. Gives the number of layers.
    unsigned draw(Target const& target, PixelArea const& area, Transparency const& how,
                  std::function<void()> const& draw);

    /// What programs need beyond their own features while `draw` runs.
    static Features features(Target const& target, Transparency const& how);

private:
    /// Brings layer `from` under what was gathered so far; gives the number of pixels that it covers.
    unsigned gather(Surface const& from, PixelArea const& area, bool everySample, int samples);

    Surface layers_[2]; ///< in turn: the one that is drawn, and the one before it
    Surface gathered_;
    unsigned query_ = 0;
};

} // namespace HPS::render
