#pragma once
#include "Target.h"
#include <memory>

namespace HPS::render
{

/// Opens the device and has the driver compile what ordinary pictures need, by drawing a tiny one: lit faces
/// with displacement, thin lines, background, multisampled. A software driver spends most of a first picture
/// on that.
///
/// The context is current on no thread afterwards, so that any thread can go on with it. Nothing of the
/// database is read. False if there is no device.
///
/// Sizes in pixels, at least 1: the target of a canvas of that size is kept for `firstTarget`, for new memory
/// costs as much as drawing does.
bool warmUp(int width, int height, int samples);

/// The target that `warmUp` has left, once; else an empty one.
std::unique_ptr<Target> firstTarget();

} // namespace HPS::render
