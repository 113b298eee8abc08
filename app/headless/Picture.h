#pragma once

#include "ExitCode.h"
#include "InputFile.h"
#include "Options.h"

#include "hps_api.h"

#include <QImage>

#include <variant>

namespace zelview
{

/// A picture of a model and what it took.
struct Picture {
    QImage image;
    HPS::UpdateReport report;
    HPS::Cuboid box;       ///< of what is shown, in the model's unit
    double fitSeconds = 0; ///< for canvas and view, and the camera that shows all
};

/// Draws the model on a canvas without a window: as chosen, and where nothing is said about the camera all of
/// it from the front, right and top. Colours are those of the current settings.
std::variant<Picture, Refusal> drawPicture(HPS::Model const& model, PixelSize size, ViewChoice const& choice);

/// The bytes of a PNG file; empty if the image cannot be encoded.
QByteArray encodePng(QImage const& image);

} // namespace zelview
