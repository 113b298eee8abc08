#include "ModelCache.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

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

/// Of a file's contents and a word beside them, as 64 hexadecimal digits; empty if it can't be read, or is no
/// file: a device may have no end.
std::string hashOf(std::filesystem::path const& path, std::string_view word)
{
    QFile file(nameOf(path));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return {};
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return {};
    hash.addData(QByteArrayView(word.data(), static_cast<qsizetype>(word.size())));
    return hash.result().toHex().toStdString();
}

bool isOlder(std::filesystem::path const& file, std::filesystem::file_time_type time)
{
    std::error_code error;
    auto const written = std::filesystem::last_write_time(file, error);
    return !error && written < time;
}

// An entry is this mark, the size of a list, the list of other files, and the packed model. In the list stand
// the hash of a file and its path from the first file's folder, which a zero ends.
constexpr char Mark[8] = {'Z', 'E', 'L', 'K', 'E', 'P', 'T', '1'};
constexpr std::size_t HashLength = 64;

/// The list, cut off from the front of an entry; nothing if that is damaged.
std::optional<std::string_view> takeList(std::string_view& entry)
{
    std::uint64_t size = 0;
    constexpr auto Front = sizeof Mark + sizeof size;
    if (entry.size() < Front || std::memcmp(entry.data(), Mark, sizeof Mark) != 0) return std::nullopt;
    std::memcpy(&size, entry.data() + sizeof Mark, sizeof size);
    entry.remove_prefix(Front);
    if (size > entry.size() || (size > 0 && entry[size - 1] != '\0')) return std::nullopt;
    auto const list = entry.substr(0, size);
    entry.remove_prefix(size);
    return list;
}

bool isAsListed(std::string_view list, std::filesystem::path const& folder)
{
    while (list.size() > HashLength) {
        auto const end = list.find('\0');
        auto const name = list.substr(0, end).substr(std::min(HashLength, end));
        if (hashOf(folder / name, {}) != list.substr(0, HashLength)) return false;
        list.remove_prefix(end + 1);
    }
    return list.empty();
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

ModelCache::Key ModelCache::keyOf(ReadRequest const& request)
{
    Key key{{}, request.path, std::filesystem::file_time_type::clock::now()};
    auto const& options = request.options;
    // The name of the file gives the model its title.
    std::ostringstream way;
    way << request.path.stem().string() << '/' << options.graphical << options.persistentNames
        << options.occurrenceData << options.exactShapes << '/' << options.distanceShare << '/'
        << options.angle << '/' << readerBuild();
    key.name = hashOf(request.path, way.str());
    return key;
}

std::optional<ReadResult> ModelCache::load(Key const& key, ReadRequest const& request,
                                           ZELProductStructure& model) const
{
    QFile file(nameOf(fileOf(key)));
    if (Folder.empty() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
    auto const size = static_cast<std::size_t>(file.size());
    auto* const bytes = file.map(0, file.size());
    std::string_view piece(reinterpret_cast<char const*>(bytes), bytes ? size : 0);
    auto const list = takeList(piece);
    if (list && !isAsListed(*list, key.file.parent_path())) return std::nullopt;
    ZELProductStructure found;
    std::optional<ReadResult> result;
    if (list) result = unpackModel(piece, request, found);
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

void ModelCache::store(Key const& key, std::vector<std::filesystem::path> const& otherFiles,
                       PackedModel::Pieces const& pieces) const
{
    if (Folder.empty() || key.name.empty() || !isOlder(key.file, key.time)) return;
    std::error_code error;
    std::string list;
    for (auto const& other : otherFiles) {
        auto const hash = hashOf(other, {});
        if (hash.empty() || !isOlder(other, key.time)) return;
        list += hash + std::filesystem::proximate(other, key.file.parent_path(), error).string() + '\0';
        if (error) return;
    }
    std::uint64_t const listSize = list.size();
    std::uintmax_t sum = sizeof Mark + sizeof listSize + listSize;
    for (auto const piece : pieces) sum += piece.size();
    if (sum > Limit) return;
    std::filesystem::create_directories(Folder, error);
    QSaveFile file(nameOf(fileOf(key)));
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(Mark, sizeof Mark);
    file.write(reinterpret_cast<char const*>(&listSize), sizeof listSize);
    file.write(list.data(), static_cast<qint64>(list.size()));
    for (auto const piece : pieces) file.write(piece.data(), static_cast<qint64>(piece.size()));
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
