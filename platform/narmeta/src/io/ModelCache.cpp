#include "ModelCache.h"

#include "model_block.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include <dlfcn.h>

#include <QCryptographicHash>
#include <QFile>
#include <QSaveFile>

namespace NarMetaInfra
{
namespace
{
QString nameOf(std::filesystem::path const& path)
{
    return QFile::decodeName(path.c_str());
}

/// Tells one build of this library from another, whose reader may make another model of the same file.
std::string readerBuild()
{
    Dl_info library{};
    std::error_code error;
    if (!dladdr(reinterpret_cast<void const*>(&readerBuild), &library) || !library.dli_fname) return {};
    auto const written = std::filesystem::last_write_time(library.dli_fname, error);
    return error ? std::string() : std::to_string(written.time_since_epoch().count());
}
} // namespace

std::filesystem::path ModelCache::userFolder()
{
    if (auto const* const cache = std::getenv("XDG_CACHE_HOME"); cache && *cache == '/')
        return std::filesystem::path(cache) / "zelview";
    if (auto const* const home = std::getenv("HOME"); home && *home == '/')
        return std::filesystem::path(home) / ".cache/zelview";
    return {};
}

bool ModelCache::takes(std::string_view extension)
{
    static constexpr std::array<std::string_view, 12> Single = {"stp", "step", "p21", "igs", "iges", "brep",
                                                                "brp", "stl",  "glb", "ply", "off",  "3mf"};
    return std::ranges::find(Single, extension) != Single.end();
}

std::string ModelCache::keyOf(ReadRequest const& request) const
{
    QFile file(nameOf(request.path));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return {};
    // The name of the file gives the model its title.
    auto const options = request.path.stem().string() + '/' + std::to_string(request.graphical) +
                         std::to_string(request.persistentNames) + std::to_string(request.occurrenceData) +
                         std::to_string(request.exactShapes) + '/' + readerBuild();
    hash.addData(QByteArrayView(options.data(), static_cast<qsizetype>(options.size())));
    return hash.result().toHex().toStdString();
}

std::optional<ReadResult> ModelCache::load(std::string const& key, ReadRequest const& request,
                                           ZELProductStructure& model) const
{
    QFile file(nameOf(fileOf(key)));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    ZELProductStructure found;
    std::optional<ReadResult> result;
    if (auto* const bytes = file.map(0, file.size()))
        result = unpackModel({reinterpret_cast<char const*>(bytes), static_cast<std::size_t>(file.size())},
                             request, found);
    if (!result || result->outcome != IoOutcome::Done) {
        file.remove();
        return std::nullopt;
    }
    // Its time tells how long ago it was wanted last.
    std::error_code ignored;
    std::filesystem::last_write_time(fileOf(key), std::filesystem::file_time_type::clock::now(), ignored);
    model.Swap(found);
    return result;
}

void ModelCache::store(std::string const& key, ReadResult const& result,
                       ZELProductStructure const& model) const
{
    bool const hasOtherFiles = std::ranges::any_of(
        model.GetReferences(), [](auto const& reference) { return !reference->GetStorageName().empty(); });
    std::error_code error;
    if (key.empty() || hasOtherFiles || result.outcome != IoOutcome::Done) return;
    std::filesystem::create_directories(Folder, error);
    auto const piece = packModel(result, model);
    if (piece.size() > Limit) return;
    QSaveFile file(nameOf(fileOf(key)));
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(piece.data(), static_cast<qint64>(piece.size()));
    if (file.commit()) trim();
}

void ModelCache::trim() const
{
    struct Entry {
        std::filesystem::file_time_type time;
        std::uintmax_t size;
        std::filesystem::path path;
    };
    std::vector<Entry> entries;
    std::uintmax_t sum = 0;
    std::error_code error;
    for (auto const& file : std::filesystem::directory_iterator(Folder, error)) {
        std::error_code gone;
        Entry entry{file.last_write_time(gone), file.file_size(gone), file.path()};
        if (gone) continue;
        sum += entry.size;
        entries.push_back(std::move(entry));
    }
    std::ranges::sort(entries, {}, &Entry::time);
    for (auto const& entry : entries) {
        if (sum <= Limit) return;
        if (std::filesystem::remove(entry.path, error)) sum -= entry.size;
    }
}
} // namespace NarMetaInfra
