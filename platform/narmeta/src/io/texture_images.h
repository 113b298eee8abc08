#pragma once

#include <narmeta/visu/TextureImage.h>

#include <filesystem>
#include <memory>

#include <QByteArray>

namespace NarMetaInfra
{
/// Bytes of an image in a file or, from @p offset on, in a part of it of @p length; 0: up to its end. Empty
/// if they can't be read, are more than 2^28, or if what has the name is no file.
QByteArray imageBytes(std::filesystem::path const& path, qint64 offset = 0, qint64 length = 0);

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
