#include "MemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

namespace NarMetaInfra
{
MemoryFile::MemoryFile(std::string_view bytes) : Descriptor(memfd_create("copy", MFD_CLOEXEC))
{
    while (Descriptor >= 0 && !bytes.empty()) {
        auto const written = write(Descriptor, bytes.data(), bytes.size());
        if (written <= 0) {
            close(Descriptor);
            Descriptor = -1;
            return;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

MemoryFile::~MemoryFile()
{
    if (Descriptor >= 0) close(Descriptor);
}

std::filesystem::path MemoryFile::path() const
{
    return Descriptor < 0 ? std::string() : "/proc/self/fd/" + std::to_string(Descriptor);
}

std::filesystem::path MemoryFile::nameOf(std::filesystem::path const& file)
{
    std::error_code error;
    return "../../.." + std::filesystem::absolute(file, error).string();
}
} // namespace NarMetaInfra
