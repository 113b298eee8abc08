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
#include <memory>

namespace HPS::render
{

/// What a frame does with all that lies under its highlights.
enum class Ground {
    Draw,
    DrawAndKeep, ///< for frames to come
    TakeKept,    ///< of the last frame that kept it
};

/// Draws draw lists into targets; one per canvas. Keeps the instances of the last list on the device, so that
/// a frame that differs by the camera alone uploads no more than its list of visible records.
class Frame
{
public:
    /// Needs the device's context to be current. What the target holds stays below the new picture unless the
    /// scene has a background. The picture is complete once the target is resolved. `ground` may be taken if
    /// it is kept for the target and nothing but the scene's highlights has changed since the last frame.
    FrameCounts draw(Target const& target, DrawList const& list, Scene const& scene,
                     Ground ground = Ground::Draw);
    /// True if the last frame's ground is kept, for a target of this size.
    bool keepsGroundOf(Target const& target) const;
    /// Lets go of what is kept: highlights no longer change on their own.
    void dropGround() { ground_.reset(); }

private:
    void upload(FrameContext& context);
    void drawGround(FrameContext& context);
    void drawSteps(FrameContext& context, Ground ground);

    std::unique_ptr<Target> ground_; ///< colours and depths below the highlights; null: not kept
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
