// The outer form of a stream file: a signature and a version, then chunks, each with type, version, sizes and
// check sum, its content compressed by itself. docs/stream_format.md describes it.
#pragma once
#include "bytes.h"
#include <iosfwd>

namespace HPS::scene
{

constexpr std::uint32_t chunkType(char const (&name)[5])
{
    std::uint32_t type = 0;
    for (unsigned i = 0; i < 4; ++i)
        type |= static_cast<std::uint32_t>(static_cast<unsigned char>(name[i])) << (8 * i);
    return type;
}

enum class ChunkType : std::uint32_t {
    Head = chunkType("HEAD"),        // how many of everything
    Tree = chunkType("TREE"),        // the segments, by owner and name
    Definitions = chunkType("DEFN"), // what the portfolios hold
    Segments = chunkType("SEGM"),    // what the segments hold, geometry excepted
    Geometry = chunkType("GEOM"),
    End = chunkType("ENDS"),
};

struct Chunk {
    std::uint32_t type = 0;
    std::uint32_t version = 0;
    Bytes content;
};

inline constexpr std::uint32_t chunkVersion = 1;                      // of all types so far
inline constexpr std::size_t chunkSize = std::size_t(2) << 20;        // what is written, but for the last
inline constexpr std::size_t largestChunkSize = std::size_t(4) << 20; // what is read
// A small file must not fill the memory: no content is more than so many times as large as it is packed.
inline constexpr std::size_t largestGrowth = 1024;

class ChunkWriter
{
public:
    explicit ChunkWriter(std::ostream& out); // writes the signature
    void write(std::uint32_t type, std::uint32_t version, ByteSpan content);

private:
    void pad(std::size_t& packedSize, std::size_t least);

    std::ostream& out_;
    Bytes packed_;
};

class ChunkReader
{
public:
    // Throws if the signature or the version is not one that is understood here.
    explicit ChunkReader(std::istream& in);
    // False at the end of the file. `chunk` keeps its memory.
    bool read(Chunk& chunk);
    // How much of the file has been read, from 0 to 1.
    float progress() const;
    std::uint64_t fileSize() const { return size_; }

private:
    void get(void* to, std::size_t count);

    std::istream& in_;
    std::uint64_t size_ = 0; // of the file
    std::uint64_t left_ = 0;
    Bytes packed_;
};

} // namespace HPS::scene
