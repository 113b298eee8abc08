#pragma once

#include "ModelReader.h"

namespace NarMetaInfra
{
/// Models kept from earlier reads in a folder of the user's, by what the file holds and how it was read.
/// Several processes may use one folder, and one may be killed at any time: files appear whole or not at all.
class ModelCache
{
public:
    /// @p folder: made when first written to. @p limit: bytes of all files together.
    ModelCache(std::filesystem::path folder, std::uintmax_t limit) : Folder(std::move(folder)), Limit(limit)
    {
    }

    /// $XDG_CACHE_HOME/zelview, or .cache/zelview in the home folder; empty without either.
    static std::filesystem::path userFolder();
    /// Only a file that stands for itself can be told by its contents: not one with others beside it.
    static bool takes(std::string_view extension);

    /// Empty if the file can't be read.
    std::string keyOf(ReadRequest const& request) const;
    /// Nothing, and the model as it was, if there is no such entry or it is damaged; that one is removed
    /// then.
    std::optional<ReadResult> load(std::string const& key, ReadRequest const& request,
                                   ZELProductStructure& model) const;
    /// What can't be stored is not; then the oldest entries go until the limit holds.
    void store(std::string const& key, ReadResult const& result, ZELProductStructure const& model) const;

private:
    std::filesystem::path fileOf(std::string const& key) const { return Folder / (key + ".model"); }
    void trim() const;

    std::filesystem::path Folder;
    std::uintmax_t Limit;
};
} // namespace NarMetaInfra
