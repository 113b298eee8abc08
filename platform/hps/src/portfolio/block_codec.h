#pragma once
#include "image_codec.h"

namespace HPS::scene
{

// Pictures in blocks of four by four pixels, as graphics hardware reads them: two colours of 5, 6 and 5 bits
// and two bits a pixel that mix them, in DXT3 and DXT5 behind 8 bytes of alpha.
constexpr bool isBlocks(Image::Format format)
{
    return format >= Image::Format::DXT1;
}

// The RGBA pixels of `blocks`, whose number must be that of a picture of this size. False if it is not.
bool decodeBlocks(std::span<byte const> blocks, Image::Format format, unsigned int width, unsigned int height,
                  Raster& raster);
// From an RGBA raster. Pixels beyond the edge repeat those at it.
ByteArray encodeBlocks(Raster const& raster, Image::Format format);

} // namespace HPS::scene
