#pragma once

namespace HPS::render
{

/// Opens the device and has the driver compile what ordinary pictures need, by drawing a tiny one: lit faces
/// with displacement, thin lines, background, multisampled. A software driver spends most of a first picture
/// on that.
///
/// The context is current on no thread afterwards, so that any thread can go on with it. Nothing of the
/// database is read. False if there is no device.
bool warmUp();

} // namespace HPS::render
