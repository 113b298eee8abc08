#pragma once

#include <filesystem>
#include <string_view>

namespace NarMetaInfra
{
/// Formats that are told apart by what a file holds; its extension plays no part.
enum class FileFormat { Unknown, Step, Iges, Brep, GltfText, GltfBinary, StlText, StlBinary, Obj };

/// How many bytes of the start of a file the recognition looks at.
inline constexpr std::size_t SignatureLength = 64 * 1024;

/// `head` is the start of the file (up to SignatureLength bytes), `fileSize` its whole size in bytes.
/// A binary STL is only recognised if its triangle count agrees with `fileSize`.
FileFormat recogniseFormat(std::string_view head, std::uintmax_t fileSize);

/// Unknown also for a file that can't be read.
FileFormat recogniseFormat(std::filesystem::path const& file);

/// Name of the format for messages to the user.
std::string_view formatName(FileFormat format);
} // namespace NarMetaInfra
