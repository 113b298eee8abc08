#pragma once
#include "CallList.h"
#include "LightStep.h"
#include "OtherView.h"
#include "PlaneMirror.h"
#include "PlaneShadowMap.h"
#include "VisibleRecords.h"
#include <memory>

namespace HPS::render
{

/// Planes that take shadows and that mirror.
class PlaneStep
{
public:
    /// What is needed beforehand; other surfaces than the target are drawn into.
    void prepare(FrameContext const& context);
    /// Lays shadows and mirror images over what is opaque in the target.
    void draw(FrameContext const& context) const;

private:
    void drawShadow(FrameContext const& context, std::size_t number);
    void drawMirror(FrameContext const& context, std::size_t number);

    // In the order of the draw list's own; null where nothing is to be seen.
    std::vector<std::unique_ptr<PlaneShadowMap>> shadows_;
    std::vector<std::unique_ptr<PlaneMirror>> mirrors_;
    VisibleRecords mirrored_;
    LightStep lights_; ///< as the mirror turns them
    OtherView::Buffers buffers_;
    CallList calls_;
};

} // namespace HPS::render
