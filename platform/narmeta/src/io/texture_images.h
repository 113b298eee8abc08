#pragma once

#include <narmeta/visu/TextureImage.h>

#include <memory>
#include <string>
#include <vector>

class QByteArray;

namespace NarMetaInfra
{
/// Pixels of an encoded image (PNG, JPEG, ... whatever Qt reads) as RGBA, the top row first; null if it can't
/// be decoded or has more than 2^26 pixels.
std::shared_ptr<NarMetaVisu::TextureImage> decodeImage(QByteArray const& encoded);

/// An RGBA image with the red of another one of its size as alpha; null if the sizes differ.
std::shared_ptr<NarMetaVisu::TextureImage> withOpacity(NarMetaVisu::TextureImage const& image,
                                                       NarMetaVisu::TextureImage const& opacity);

/// A grey image of one channel (0 red, 1 green, 2 blue) of an RGBA one.
std::shared_ptr<NarMetaVisu::TextureImage> channelOf(NarMetaVisu::TextureImage const& image, int channel,
                                                     bool inverted = false);
} // namespace NarMetaInfra
