#pragma once
#include "CallList.h"
#include "OtherView.h"
#include "ShadowMaps.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// Finds out how far the lights reach. Runs before anything is drawn into the target. A map is drawn anew
/// only when the scene or what its light sees of it has changed.
class ShadowStep
{
public:
    /// True if there are shadows; then the mask that Feature::Shadowed reads is bound.
    bool draw(FrameContext const& context, VisibleRecords const& visible);

    /// Maps drawn since the step was made.
    unsigned mapsDrawn() const { return mapsDrawn_; }

private:
    struct Parts {
        ShadowMaps maps;
        Surface depths; ///< of what takes shadows, one sample a pixel
        Parts();
    };
    void drawMap(FrameContext const& context, std::size_t light, Viewing const& view);
    void drawDepths(FrameContext const& context, VisibleRecords const& visible);

    std::optional<Parts> parts_; ///< none while there are no shadows
    OtherView::Buffers buffers_;
    CallList calls_;
    unsigned mapsDrawn_ = 0;
};

} // namespace HPS::render
