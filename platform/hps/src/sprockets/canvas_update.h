#pragma once
#include "CanvasPicture.h"
#include "records.h"

namespace HPS
{

/// How canvases come to their pictures.
///
/// Where nobody shows them they are made at once, on the caller's thread. Where a window does, the caller
/// goes on: an update notes what is wanted, the window's event loop has it made when nothing else is left to
/// do, so that many changes give one picture, the thread of pictures makes it, and the loop shows it. Whoever
/// asks for something of it before that has it made and waits.

/// True if the picture is made and whole, or will be made. False for a canvas that is gone.
bool updateCanvas(Canvas const& canvas, UpdateRequest const& request);

/// The record of a canvas once all that was wanted is made, shown, and what was met on the way is told. Null
/// if the canvas is gone, which who hears of that may bring about.
CanvasRecord* settled(Canvas const& canvas);

/// False before the first picture of a settled canvas.
bool readPicture(CanvasRecord& record, Picture& picture);

} // namespace HPS
