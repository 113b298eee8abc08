#include "extents.h"
#include "subscriptions.h"
#include "user_data.h"
#include <hps/Database.h>

namespace HPS
{
using namespace scene;

namespace
{

template <class K> bool showKeys(SlotList const& slots, std::vector<K>& keys)
{
    keys.clear();
    keys.reserve(slots.size());
    for (auto const slot : slots) keys.emplace_back(store().indexOf(slot));
    return !keys.empty();
}

} // namespace

void SegmentKey::SetName(UTF8 const& name)
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    if (segment && !rename(*segment, name.Str()))
        raiseError(("Segment not renamed: a sibling is named \"" + name.Str() + "\" already").c_str());
}

SegmentKey SegmentKey::Subsegment(UTF8 const& name, bool create)
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment) return {};
    if (auto const* const child = findChild(*segment, name.Str())) return SegmentKey(store().indexOf(*child));
    return create ? SegmentKey(store().indexOf(createSegment(segment, name.Str()))) : SegmentKey();
}

bool SegmentKey::ShowSubsegments(SegmentKeyArray& children) const
{
    children.clear();
    auto const* const segment = store().resolve<SegmentRecord>(*this);
    return segment && showKeys(segment->children, children);
}

std::size_t SegmentKey::GetSubsegmentCount() const
{
    auto const* const segment = store().resolve<SegmentRecord>(*this);
    return segment ? segment->children.size() : 0;
}

bool SegmentKey::MoveTo(SegmentKey const& owner)
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    auto* const target = store().resolve<SegmentRecord>(owner);
    if (!segment || !target) return false;
    if (moveTo(*segment, *target)) return true;
    raiseError(standsBelow(*target, *segment) ? "Segment not moved: it would stand below itself"
                                              : "Segment not moved: a segment of its name is there already");
    return false;
}

IncludeKey SegmentKey::IncludeSegment(SegmentKey const& target)
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    auto* const included = store().resolve<SegmentRecord>(target);
    if (!segment) return {};
    if (!included) return raiseError("Include refused: there is no such segment"), IncludeKey();
    auto const* const include = createInclude(*segment, *included);
    if (!include) raiseError("Include refused: the segment would stand below itself");
    return include ? IncludeKey(store().indexOf(*include)) : IncludeKey();
}

bool SegmentKey::ShowIncludes(IncludeKeyArray& includes) const
{
    includes.clear();
    auto const* const segment = store().resolve<SegmentRecord>(*this);
    return segment && showKeys(segment->includes, includes);
}

bool SegmentKey::ShowIncluders(IncludeKeyArray& includers) const
{
    includers.clear();
    auto const* const segment = store().resolve<SegmentRecord>(*this);
    return segment && showKeys(segment->includers, includers);
}

SegmentKey& SegmentKey::SetModellingMatrix(MatrixKit const& matrix)
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment) return *this;
    if (!matrix.IsFinite()) return raiseError("Modelling matrix refused: an element is no number"), *this;
    auto const before = segment->matrix ? *segment->matrix : MatrixKit();
    if (segment->matrix && before == matrix) return *this;
    segment->matrix = matrix;
    moveBounds(*segment, before);
    noteChange(*segment, Change::Matrix);
    return *this;
}

SegmentKey& SegmentKey::UnsetModellingMatrix()
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment || !segment->matrix) return *this;
    auto const before = *segment->matrix;
    segment->matrix.reset();
    moveBounds(*segment, before);
    noteChange(*segment, Change::Matrix);
    return *this;
}

bool SegmentKey::ShowModellingMatrix(MatrixKit& matrix) const
{
    auto const* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment || !segment->matrix) return false;
    matrix = *segment->matrix;
    return true;
}

SegmentKey& SegmentKey::SetTextureMatrix(MatrixKit const& matrix)
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment) return *this;
    if (!matrix.IsFinite()) return raiseError("Texture matrix refused: an element is no number"), *this;
    segment->rare().textureMatrix = matrix;
    noteChange(*segment, Change::Attributes);
    return *this;
}

SegmentKey& SegmentKey::UnsetTextureMatrix()
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment || !segment->extras || !segment->extras->textureMatrix) return *this;
    segment->extras->textureMatrix.reset();
    noteChange(*segment, Change::Attributes);
    return *this;
}

bool SegmentKey::ShowTextureMatrix(MatrixKit& matrix) const
{
    auto const* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment || !segment->extras || !segment->extras->textureMatrix) return false;
    matrix = *segment->extras->textureMatrix;
    return true;
}

SegmentKey& SegmentKey::SetPriority(int priority)
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment) return *this;
    segment->rare().priority = priority;
    noteChange(*segment, Change::Attributes);
    return *this;
}

SegmentKey& SegmentKey::UnsetPriority()
{
    auto* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment || !segment->extras || !segment->extras->priority) return *this;
    segment->extras->priority.reset();
    noteChange(*segment, Change::Attributes);
    return *this;
}

bool SegmentKey::ShowPriority(int& priority) const
{
    auto const* const segment = store().resolve<SegmentRecord>(*this);
    if (!segment || !segment->extras || !segment->extras->priority) return false;
    priority = *segment->extras->priority;
    return true;
}

SegmentKey Database::CreateRootSegment()
{
    return SegmentKey(store().indexOf(createSegment(nullptr, {})));
}

SegmentKeyArray Database::GetRootSegments()
{
    SegmentKeyArray keys;
    showKeys(store().roots, keys);
    return keys;
}

} // namespace HPS
