#include "tagged_segments.h"

namespace ZelVizBase
{

namespace
{

constexpr unsigned long long viewsNode = 10010; ///< the tree's node above all views of a PMI set

} // namespace

TAG_TYPE tagOf(HPS::Key const& key)
{
    HPS::SegmentKey segment(key);
    if (key.HasType(HPS::Type::IncludeKey)) segment = HPS::IncludeKey(key).GetTarget();
    TAG_TYPE type = ZELSegmentTagger::TAG_NONE;
    if (segment.Type() != HPS::Type::None) ZELSegmentTagger::GetType(segment, type);
    return type;
}

HPS::SegmentKey parentOf(HPS::Key const& key, TAG_TYPE& type)
{
    for (HPS::SegmentKey at = key.Up();; at = at.Up()) {
        if (at.Type() == HPS::Type::None) return at;
        TAG_TYPE const tag = tagOf(at);
        if (tag == ZELSegmentTagger::TAG_PMI || tag == ZELSegmentTagger::TAG_VISU_GEOMETRY ||
            tag == ZELSegmentTagger::TAG_PMI_ROOT) {
            type = tag;
            return at;
        }
    }
}

std::vector<unsigned long long> treeIdsOf(HPS::KeyPath path)
{
    path.Reverse();
    std::vector<unsigned long long> ids;
    std::size_t pmiView = 0;
    for (HPS::Key const& key : path) {
        if (!key.HasType(HPS::Type::SegmentKey) || key.HasType(HPS::Type::IncludeKey)) continue;
        HPS::SegmentKey segment(key);
        unsigned long long pid = 0;
        TAG_TYPE type = ZELSegmentTagger::TAG_NONE;
        if (!ZELSegmentTagger::GetPid(segment, pid) || !ZELSegmentTagger::GetType(segment, type)) continue;
        if (pid == 0 || type == ZELSegmentTagger::TAG_NONE || type == ZELSegmentTagger::TAG_REFERENCE)
            continue;
        ids.push_back(pid);
        if (type == ZELSegmentTagger::TAG_PMI_VIEW) pmiView = ids.size() - 1;
    }
    if (pmiView != 0) ids.insert(ids.begin() + static_cast<std::ptrdiff_t>(pmiView), viewsNode);
    return ids;
}

} // namespace ZelVizBase
