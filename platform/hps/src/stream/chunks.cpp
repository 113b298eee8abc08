#include "chunks.h"
#include <array>
#include <istream>
#include <ostream>
#include <zlib.h>
#include <zstd.h>

namespace HPS::scene
{
namespace
{

// Spoilt by whoever changes line ends or cuts off the top bit.
constexpr std::array<unsigned char, 8> signature{0x89, 'H', 'S', 'F', '\r', '\n', 0x1A, '\n'};
constexpr std::uint32_t formatVersion = 1;
constexpr int compressionLevel = 1;

struct ChunkHeader {
    std::uint32_t type;
    std::uint32_t version;
    std::uint32_t contentSize;
    std::uint32_t packedSize;
    std::uint32_t checkSum; // CRC-32 of the four fields above and the packed content
};
static_assert(sizeof(ChunkHeader) == 20);

std::uint32_t checkSum(ChunkHeader const& header, ByteSpan packed)
{
    auto const add = [](uLong sum, void const* bytes, std::size_t count) {
        return crc32_z(sum, static_cast<Bytef const*>(bytes), count);
    };
    auto const start = add(crc32_z(0, nullptr, 0), &header, offsetof(ChunkHeader, checkSum));
    return static_cast<std::uint32_t>(packed.empty() ? start : add(start, packed.data(), packed.size()));
}

void put(std::ostream& out, void const* bytes, std::size_t count)
{
    out.write(static_cast<char const*>(bytes), static_cast<std::streamsize>(count));
}

} // namespace

ChunkWriter::ChunkWriter(std::ostream& out) : out_(out)
{
    put(out_, signature.data(), signature.size());
    put(out_, &formatVersion, sizeof formatVersion);
}

// Fills a content that compressed too well up to `least` bytes, with a frame that decompression skips.
void ChunkWriter::pad(std::size_t& packedSize, std::size_t least)
{
    if (packedSize >= least) return;
    constexpr std::uint32_t magic = ZSTD_MAGIC_SKIPPABLE_START;
    auto const fill = static_cast<std::uint32_t>(least - packedSize);
    packed_.resize(packedSize + 2 * sizeof magic + fill);
    std::memcpy(&packed_[packedSize], &magic, sizeof magic);
    std::memcpy(&packed_[packedSize + sizeof magic], &fill, sizeof fill);
    std::memset(&packed_[packedSize + 2 * sizeof magic], 0, fill);
    packedSize = packed_.size();
}

void ChunkWriter::write(std::uint32_t type, std::uint32_t version, ByteSpan content)
{
    packed_.resize(ZSTD_compressBound(content.size()));
    auto packedSize =
        ZSTD_compress(packed_.data(), packed_.size(), content.data(), content.size(), compressionLevel);
    if (ZSTD_isError(packedSize))
        throw IOException(std::string("cannot be compressed: ") + ZSTD_getErrorName(packedSize));
    pad(packedSize, content.size() / largestGrowth);
    ChunkHeader header{type, version, static_cast<std::uint32_t>(content.size()),
                       static_cast<std::uint32_t>(packedSize), 0};
    header.checkSum = checkSum(header, ByteSpan(packed_).first(packedSize));
    put(out_, &header, sizeof header);
    put(out_, packed_.data(), packedSize);
}

ChunkReader::ChunkReader(std::istream& in) : in_(in)
{
    in_.seekg(0, std::ios::end);
    auto const end = in_.tellg();
    in_.seekg(0);
    if (!in_ || end < 0) throw IOException("cannot be read");
    size_ = left_ = static_cast<std::uint64_t>(end);
    std::array<unsigned char, signature.size()> found{};
    std::uint32_t version = 0;
    if (left_ < found.size() + sizeof version) throw IOException("is no stream file");
    get(found.data(), found.size());
    if (found != signature) throw IOException("is no stream file");
    get(&version, sizeof version);
    if (version != formatVersion)
        throw IOException("has version " + std::to_string(version) + " of the stream format; version " +
                          std::to_string(formatVersion) + " can be read");
}

void ChunkReader::get(void* to, std::size_t count)
{
    if (count > left_) throw IOException("is cut off");
    in_.read(static_cast<char*>(to), static_cast<std::streamsize>(count));
    if (!in_) throw IOException("cannot be read to its end");
    left_ -= count;
}

bool ChunkReader::read(Chunk& chunk)
{
    if (left_ == 0) return false;
    ChunkHeader header{};
    get(&header, sizeof header);
    if (header.packedSize > left_) throw IOException("is cut off");
    if (header.contentSize > largestChunkSize || header.packedSize > ZSTD_compressBound(largestChunkSize))
        throw IOException("is damaged: a chunk is too large");
    if (header.contentSize / largestGrowth > header.packedSize)
        throw IOException("holds far more than a file of its size may");
    packed_.resize(header.packedSize);
    get(packed_.data(), packed_.size());
    if (checkSum(header, packed_) != header.checkSum) throw IOException("is damaged: a check sum is wrong");
    chunk.type = header.type;
    chunk.version = header.version;
    chunk.content.resize(header.contentSize);
    auto const size =
        ZSTD_decompress(chunk.content.data(), chunk.content.size(), packed_.data(), packed_.size());
    if (ZSTD_isError(size) || size != chunk.content.size())
        throw IOException("is damaged: a chunk cannot be unpacked");
    return true;
}

float ChunkReader::progress() const
{
    return size_ == 0 ? 1.0f : 1.0f - static_cast<float>(left_) / static_cast<float>(size_);
}

} // namespace HPS::scene
