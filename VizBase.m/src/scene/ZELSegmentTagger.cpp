#include "ZELSegmentTagger.h"

#include <memory>

namespace ZelVizBase
{

namespace
{

constexpr size_t tagEntryCount = 2;
constexpr size_t numberSize = 8;

template <class Key> bool showEntry(Key& key, std::int64_t index, size_t leastSize, HPS::ByteArray& bytes)
{
    return key.ShowUserDataCount() == tagEntryCount && key.ShowUserData(index, bytes) &&
           bytes.size() >= leastSize;
}

template <class Key> bool readNumber(Key& key, unsigned long long& pid)
{
    pid = 0;
    HPS::ByteArray bytes;
    if (!showEntry(key, 1, numberSize, bytes)) return false;
    for (HPS::byte const byte : bytes) pid = pid << 8 | byte;
    return true;
}

template <class Key> bool readType(Key& key, ZELSegmentTagger::TAG_TYPE& type)
{
    type = ZELSegmentTagger::TAG_NONE;
    HPS::ByteArray bytes;
    if (!showEntry(key, 0, 1, bytes)) return false;
    type = static_cast<ZELSegmentTagger::TAG_TYPE>(bytes.front());
    return true;
}

} // namespace

template <class Key> void ZELSegmentTagger::tagNumber(Key& key, unsigned long long pid, TAG_TYPE type)
{
    HPS::byte typeByte = 0;
    HPS::ByteArray pidBytes;
    BuildData(pid, numberSize, type, typeByte, pidBytes);
    key.SetUserData(0, 1, &typeByte);
    key.SetUserData(1, pidBytes);
}

void ZELSegmentTagger::Tag(HPS::SegmentKey& key, std::wstring const& pid, TAG_TYPE type)
{
    auto const typeByte = static_cast<HPS::byte>(type);
    HPS::UTF8 const text(pid);
    auto const* first = reinterpret_cast<HPS::byte const*>(text.GetBytes());
    key.SetUserData(0, 1, &typeByte);
    key.SetUserData(1, HPS::ByteArray(first, first + text.GetLength()));
}

void ZELSegmentTagger::Tag(HPS::SegmentKey& key, unsigned long long pid, TAG_TYPE type)
{
    tagNumber(key, pid, type);
}

void ZELSegmentTagger::Tag(HPS::GeometryKey& key, unsigned long long pid, TAG_TYPE type)
{
    tagNumber(key, pid, type);
}

bool ZELSegmentTagger::GetPid(HPS::SegmentKey& key, unsigned long long& pid)
{
    return readNumber(key, pid);
}

bool ZELSegmentTagger::GetPid(HPS::GeometryKey& key, unsigned long long& pid)
{
    return readNumber(key, pid);
}

bool ZELSegmentTagger::GetPid(HPS::SegmentKey& key, std::wstring& pid)
{
    pid.clear();
    HPS::ByteArray bytes;
    if (!showEntry(key, 1, 1, bytes)) return false;
    TAG_TYPE type = TAG_NONE;
    GetType(key, type);
    if (type == TAG_REFERENCE || type == TAG_INSTANCE)
        pid = HPS::UTF8(std::string(bytes.begin(), bytes.end())).ToWStr();
    return true;
}

bool ZELSegmentTagger::GetType(HPS::SegmentKey& key, TAG_TYPE& type)
{
    return readType(key, type);
}

bool ZELSegmentTagger::GetType(HPS::GeometryKey& key, TAG_TYPE& type)
{
    return readType(key, type);
}

void ZELSegmentTagger::Print(HPS::Model& model)
{
    std::unique_ptr<FILE, int (*)(FILE*)> const file(std::fopen("D:/ZELSegmentTagger.txt", "wt"),
                                                     &std::fclose);
    if (!file) return;
    HPS::SegmentKey segment = model.GetSegmentKey();
    HPS::SegmentKey library = model.GetLibraryKey();
    std::fprintf(file.get(), "%s", segment.Name().GetBytes());
    LogInfo(file.get(), segment);
    LogInfo(file.get(), library);
}

void ZELSegmentTagger::LogInfo(FILE* file, HPS::SegmentKey& segment)
{
    HPS::SegmentKeyArray subsegments;
    if (segment.ShowSubsegments(subsegments) > 0) {
        for (HPS::SegmentKey& subsegment : subsegments) {
            std::fprintf(file, "\n\t%s", subsegment.Name().GetBytes());
            LogInfo(file, subsegment);
        }
        return;
    }
    struct Listed {
        HPS::Search::Type Search;
        HPS::Type KeyType;
        char const* Word;
    };
    static constexpr Listed listed[] = {
        {HPS::Search::Type::Shell, HPS::Type::ShellKey, "Shell"},
        {HPS::Search::Type::Line, HPS::Type::LineKey, "Line"},
        {HPS::Search::Type::Marker, HPS::Type::MarkerKey, "Marker"},
    };
    for (Listed const& kind : listed) {
        HPS::SearchResults results;
        segment.Find(kind.Search, HPS::Search::Space::Subsegments, results);
        for (HPS::SearchResultsIterator it = results.GetIterator(); it.IsValid(); it.Next()) {
            if (it.GetItem().Type() == kind.KeyType) std::fprintf(file, "\n\t\t%s", kind.Word);
        }
    }
}

void ZELSegmentTagger::BuildData(unsigned long long const& pid, size_t byteCount, TAG_TYPE type,
                                 HPS::byte& typeByte, HPS::ByteArray& pidBytes)
{
    typeByte = static_cast<HPS::byte>(type);
    pidBytes.reserve(pidBytes.size() + byteCount);
    for (size_t rest = byteCount; rest-- > 0;)
        pidBytes.push_back(static_cast<HPS::byte>(pid >> 8 * rest & 0xFF));
}

} // namespace ZelVizBase
