#pragma once
#include <hps/ImageKit.h>
#include <span>
#include <string>

namespace HPS::scene
{

// Pixels of 1 to 4 channels (grey, grey and alpha, RGB, RGBA), a byte each, rows from the top down.
struct Raster {
    unsigned int width = 0, height = 0, channels = 0;
    ByteArray pixels;
};

constexpr unsigned int largestImageSide = 16384;

// The picture in the bytes of a Png, Jpeg, Bmp or Targa file. False, with a one-line cause, for anything
// else.
bool decodeFile(std::span<byte const> file, Raster& raster, std::string& cause);

// The bytes of a file. `quality` counts for Jpeg, from 0 to 1. Empty for a format that is no file, and for a
// raster without pixels.
ByteArray encodeFile(Raster const& raster, Image::Format format, float quality);

// What the first bytes say a file is. Targa files say nothing: whatever is nothing else may be one.
Image::Format formatOf(std::span<byte const> file);
constexpr bool isFile(Image::Format format)
{
    return format >= Image::Format::Bmp && format <= Image::Format::Targa;
}

} // namespace HPS::scene
