#pragma once

#include <filesystem>
#include <string_view>

namespace NarMetaInfra
{
/// A file without a place on a disk, for libraries that read nothing but files. It lives as long as this
/// object.
class MemoryFile
{
public:
    explicit MemoryFile(std::string_view bytes);
    ~MemoryFile();
    MemoryFile(MemoryFile const&) = delete;
    MemoryFile& operator=(MemoryFile const&) = delete;

    /// Empty if there was no memory for it.
    std::filesystem::path path() const;

    /// What a file that stands in memory has to call another one: such names count from its own folder.
    static std::filesystem::path nameOf(std::filesystem::path const& file);

private:
    int Descriptor = -1;
};
} // namespace NarMetaInfra
