#pragma once

#include "model_block.h"

namespace NarMetaInfra
{
/// Models kept from earlier reads in a folder of the user's, by what the file holds and how it was read.
/// Several processes may use one folder, and one may be killed at any time: files appear whole or not at all.
class ModelCache
{
public:
    /// @p folder: made when first written to; nothing is kept without one. @p limit: bytes of all files
    /// together.
    ModelCache(std::filesystem::path folder, std::uintmax_t limit) : Folder(std::move(folder)), Limit(limit)
    {
    }

    /// $XDG_CACHE_HOME/zelview, or .cache/zelview in the home folder; empty without either.
    static std::filesystem::path userFolder();

    /// Stands for a file's contents and the way they are read.
    struct Key {
        std::string name; ///< empty if the file can't be read
        std::filesystem::path file;
        std::filesystem::file_time_type time; ///< when it was looked at
    };
    static Key keyOf(ReadRequest const& request);
    /// Nothing, and the model as it was, if there is no such entry, if one of the files that were read with
    /// it has changed, or if it is damaged; that one is removed then.
    std::optional<ReadResult> load(Key const& key, ReadRequest const& request,
                                   ZELProductStructure& model) const;
    /// @p otherFiles: that were read beside the key's. What can't be stored is not, nor what a file that was
    /// written to meanwhile gave; then the oldest entries go until the limit holds.
    void store(Key const& key, std::vector<std::filesystem::path> const& otherFiles,
               PackedModel::Pieces const& pieces) const;

private:
    std::filesystem::path fileOf(Key const& key) const { return Folder / (key.name + ".model"); }
    void trim() const;

    std::filesystem::path Folder;
    std::uintmax_t Limit;
};
} // namespace NarMetaInfra
