#pragma once
#include "BackgroundStep.h"
#include "EffectStep.h"
#include "HiddenLineStep.h"
#include "HighlightStep.h"
#include "LightStep.h"
#include "ListBuffers.h"
#include "OpaqueStep.h"
#include "OverlayStep.h"
#include "PlaneStep.h"
#include "SectionStep.h"
#include "ShadowStep.h"
#include "StrokeBuffers.h"
#include "TransparentStep.h"

namespace HPS::render
{

/// Draws draw lists into targets; one per canvas. Keeps the instances of the last list on the device, so that
/// a frame that differs by the camera alone uploads no more than its list of visible records.
class Frame
{
public:
    /// Needs the device's context to be current. What the target holds stays below the new picture unless the
    /// scene has a background. The picture is complete once the target is resolved.
    FrameCounts draw(Target const& target, DrawList const& list, Scene const& scene);

private:
    void upload(FrameContext& context);
    void drawSteps(FrameContext& context);

    StrokeBuffers strokes_;
    Buffer frameBlock_;
    ListBuffers buffers_;
    VisibleRecords visible_; ///< in this frame

    ShadowStep shadows_;
    PlaneStep planes_;
    LightStep lights_;
    BackgroundStep background_;
    OpaqueStep opaque_;
    HiddenLineStep hiddenLines_;
    SectionStep sections_;
    TransparentStep transparent_;
    EffectStep effects_;
    HighlightStep highlight_;
    OverlayStep overlay_;
};

} // namespace HPS::render
