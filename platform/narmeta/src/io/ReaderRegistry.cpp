#include "ReaderRegistry.h"

#include "ZelXmlFormat.h"
#include "mesh_library_reader.h"
#include "open_cascade_readers.h"

#include <algorithm>
#include <tuple>

namespace NarMetaInfra
{

ReaderRegistry const& ReaderRegistry::BuiltIn()
{
    static ReaderRegistry const registry = [] {
        ReaderRegistry made;
        made.Add(std::make_unique<ZelXmlReader>());
        RegisterOpenCascadeReaders(made);
        RegisterMeshLibraryReaders(made);
        return made;
    }();
    return registry;
}

ModelReader const* ReaderRegistry::Find(std::string_view head, std::string_view extension) const
{
    ModelReader const* best = nullptr;
    std::tuple best_rank{Confidence::No, true};
    for (auto const& reader : readers_) {
        auto const& claimed = reader->Format().extensions;
        bool const claims =
            std::any_of(claimed.begin(), claimed.end(), [extension](std::wstring const& candidate) {
                return std::equal(candidate.begin(), candidate.end(), extension.begin(), extension.end());
            });
        if (std::tuple const rank{reader->Recognise(head, extension), claims}; rank > best_rank) {
            best = reader.get();
            best_rank = rank;
        }
    }
    return best;
}

} // namespace NarMetaInfra
