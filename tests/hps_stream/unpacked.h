// Stream files with their chunks unpacked, so that what is changed in them reaches what reads the contents:
// for each chunk its type, its version and the number of its bytes, four bytes each, and then those.
#pragma once
#include "chunks.h"

namespace HPS::scene
{

Bytes unpacked(std::string const& file);
// A file of the bytes, whatever they are; with check sums that are right.
std::string packed(ByteSpan unpacked);

} // namespace HPS::scene
