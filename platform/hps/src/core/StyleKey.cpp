#include "structure.h"
#include "subscriptions.h"

namespace HPS
{
using namespace scene;

namespace
{

StyleKey push(Key const& key, std::string const& name, SegmentRecord* source,
              ConditionalExpression const& condition)
{
    auto* const segment = store().resolve<SegmentRecord>(key);
    if (!segment) return {};
    if (name.empty() && !source)
        return raiseError("Style not pushed: it has neither a name nor a segment"), StyleKey();
    auto& style = store().create<StyleRecord>(Type::StyleKey);
    style.owner = segment->slot;
    style.name = name;
    style.condition = store().conditionId(condition.Condition().Str());
    if (source) {
        style.source = store().indexOf(*source);
        source->isStyleSource = true;
    }
    segment->rare().styles.push_back(style.slot);
    noteChange(*segment, Change::Styles);
    return StyleKey(store().indexOf(style));
}

std::span<SlotIndex const> stylesOf(Key const& key)
{
    auto const* const segment = store().resolve<SegmentRecord>(key);
    return segment && segment->extras ? std::span<SlotIndex const>(segment->extras->styles)
                                      : std::span<SlotIndex const>();
}

} // namespace

bool StyleKey::ShowName(UTF8& name) const
{
    auto const* const style = store().resolve<StyleRecord>(*this);
    if (!style || style->name.empty()) return false;
    name = UTF8(style->name);
    return true;
}

bool StyleKey::ShowSource(SegmentKey& source) const
{
    auto const* const style = store().resolve<StyleRecord>(*this);
    if (!style || !style->name.empty() || !store().resolve<SegmentRecord>(style->source)) return false;
    source = SegmentKey(style->source);
    return true;
}

bool StyleKey::ShowCondition(ConditionalExpression& condition) const
{
    auto const* const style = store().resolve<StyleRecord>(*this);
    if (!style || style->condition == 0) return false;
    condition = ConditionalExpression(UTF8(store().conditionName(style->condition)));
    return true;
}

StyleKey StyleControl::PushNamed(UTF8 const& name)
{
    return push(segment_, name.Str(), nullptr, {});
}

StyleKey StyleControl::PushNamed(UTF8 const& name, ConditionalExpression const& condition)
{
    return push(segment_, name.Str(), nullptr, condition);
}

StyleKey StyleControl::PushSegment(SegmentKey const& source)
{
    return push(segment_, {}, store().resolve<SegmentRecord>(source), {});
}

StyleKey StyleControl::PushSegment(SegmentKey const& source, ConditionalExpression const& condition)
{
    return push(segment_, {}, store().resolve<SegmentRecord>(source), condition);
}

bool StyleControl::Pop()
{
    auto const styles = stylesOf(segment_);
    if (styles.empty()) return false;
    remove(*store().at<StyleRecord>(styles.back()));
    return true;
}

StyleControl& StyleControl::UnsetEverything()
{
    while (Pop()) continue;
    return *this;
}

bool StyleControl::Show(StyleKeyArray& styles) const
{
    styles.clear();
    for (auto const slot : stylesOf(segment_)) styles.emplace_back(store().indexOf(slot));
    return !styles.empty();
}

std::size_t StyleControl::GetCount() const
{
    return stylesOf(segment_).size();
}

} // namespace HPS
