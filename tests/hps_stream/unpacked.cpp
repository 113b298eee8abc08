#include "unpacked.h"
#include <algorithm>
#include <array>
#include <sstream>

namespace HPS::scene
{

Bytes unpacked(std::string const& file)
{
    std::istringstream in(file);
    ChunkReader reader(in);
    Bytes bytes;
    for (Chunk chunk; reader.read(chunk);) {
        std::array const header{chunk.type, chunk.version, static_cast<std::uint32_t>(chunk.content.size())};
        auto const start = std::as_bytes(std::span(header));
        bytes.insert(bytes.end(), start.begin(), start.end());
        bytes.insert(bytes.end(), chunk.content.begin(), chunk.content.end());
    }
    return bytes;
}

std::string packed(ByteSpan unpacked)
{
    std::ostringstream out;
    ChunkWriter writer(out);
    std::array<std::uint32_t, 3> header{};
    while (unpacked.size() >= sizeof header) {
        std::memcpy(header.data(), unpacked.data(), sizeof header);
        unpacked = unpacked.subspan(sizeof header);
        auto const size = std::min<std::size_t>({header[2], unpacked.size(), largestChunkSize});
        writer.write(header[0], header[1], unpacked.first(size));
        unpacked = unpacked.subspan(size);
    }
    return out.str();
}

} // namespace HPS::scene
