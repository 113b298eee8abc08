#pragma once
#include "CallList.h"
#include "EffectChain.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// The effects on the picture as a whole: they work on what is drawn between the two calls.
class EffectStep
{
public:
    void begin(FrameContext const& context);
    void finish(FrameContext const& context, VisibleRecords const& visible);

private:
    /// Marks the pixels of what goes without some of `effects`; false if there is no such thing.
    bool mark(FrameContext const& context, VisibleRecords const& visible, std::uint8_t effects);

    EffectChain chain_;
    std::optional<Surface> without_;
    CallList calls_;
};

} // namespace HPS::render
