#pragma once

#include "hps_api.h"

#include <cstdio>
#include <string>

namespace ZelVizBase
{

/// Writes onto a scene key what it stands for in the model, and reads it back.
///
/// A tag is the key's only user data, exactly two entries:
///   index 0: one byte, the TAG_TYPE;
///   index 1: the persistent id, either eight bytes with the most significant first, or UTF-8 text without a
///            terminator. The bytes do not say which: text is written for TAG_REFERENCE only.
/// A key with any other number of entries counts as untagged. Tags travel with an exported scene.
class ZELSegmentTagger
{
public:
    /// Stored in the tag, so the numbers are fixed. The free ones up to 255 are open to concrete renderers.
    enum TAG_TYPE : unsigned {
        TAG_NONE = 0, ///< never written
        TAG_REFERENCE = 1,
        TAG_INSTANCE = 2,
        TAG_VISU_GEOMETRY = 3,
        TAG_FACE = 4,
        TAG_EDGE = 5,
        TAG_VERTEX = 6,
        TAG_VISU_ROOT = 10,
        TAG_DRAWING_ROOT = 11,
        TAG_PMI_ROOT = 14,
        TAG_PMI_VIEW = 16,
        TAG_PMI = 24,
    };

    ZELSegmentTagger() = default;
    ~ZELSegmentTagger() = default;

    static void Tag(HPS::SegmentKey& key, std::wstring const& pid, TAG_TYPE type);
    static void Tag(HPS::SegmentKey& key, unsigned long long pid, TAG_TYPE type);
    static void Tag(HPS::GeometryKey& key, unsigned long long pid, TAG_TYPE type);

    /// Number form. Untagged, or a text shorter than eight bytes: false with 0. A longer text gives its last
    /// eight bytes, which means nothing: look at the type first.
    static bool GetPid(HPS::SegmentKey& key, unsigned long long& pid);
    static bool GetPid(HPS::GeometryKey& key, unsigned long long& pid);
    /// Text form. Untagged or an empty text: false and empty. A tag other than TAG_REFERENCE and TAG_INSTANCE
    /// holds no text: true and empty.
    static bool GetPid(HPS::SegmentKey& key, std::wstring& pid);

    /// Untagged: false with TAG_NONE.
    static bool GetType(HPS::SegmentKey& key, TAG_TYPE& type);
    static bool GetType(HPS::GeometryKey& key, TAG_TYPE& type);

    /// Diagnostic: lists the segments and the geometry of the leaves of a model in "D:/ZELSegmentTagger.txt".
    /// Does nothing if that file cannot be written.
    static void Print(HPS::Model& model);

private:
    static void BuildData(unsigned long long const& pid, size_t byteCount, TAG_TYPE type, HPS::byte& typeByte,
                          HPS::ByteArray& pidBytes);
    static void LogInfo(FILE* file, HPS::SegmentKey& segment);

    template <class Key> static void tagNumber(Key& key, unsigned long long pid, TAG_TYPE type);
};

} // namespace ZelVizBase
