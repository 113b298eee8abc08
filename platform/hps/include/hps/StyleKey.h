#pragma once
#include <hps/AttributeLock.h>
#include <hps/ConditionControl.h>

namespace HPS
{

// One style pushed on a segment.
class StyleKey : public KeyOf<Type::StyleKey>
{
public:
    using KeyOf::KeyOf;

    // The name it is looked up by; false for a style that names its source directly.
    bool ShowName(UTF8& name) const;
    // The segment it names directly; false for a named style.
    bool ShowSource(SegmentKey& source) const;
    // False if it always holds.
    bool ShowCondition(ConditionalExpression& condition) const;

    // The attributes that the style does not give. SetFilter adds to those named before; UnsetFilter without
    // types takes all away. ShowFilter gives them in the order of their numbers; false if there are none.
    StyleKey& SetFilter(std::vector<AttributeLock::Type> const& types);
    StyleKey& SetFilter(AttributeLock::Type type) { return SetFilter(std::vector{type}); }
    StyleKey& UnsetFilter(std::vector<AttributeLock::Type> const& types);
    StyleKey& UnsetFilter();
    bool ShowFilter(std::vector<AttributeLock::Type>& types) const;
};

using StyleKeyArray = std::vector<StyleKey>;

// The styles of a segment, applied in the order they were pushed, before the segment's own attributes.
class StyleControl
{
public:
    explicit StyleControl(Key const& segment) : segment_(segment) {}

    // The name is looked up in the portfolios of the path each time the style is applied; a name that none of
    // them has applies nothing.
    StyleKey PushNamed(UTF8 const& name);
    StyleKey PushNamed(UTF8 const& name, ConditionalExpression const& condition);
    StyleKey PushSegment(SegmentKey const& source);
    StyleKey PushSegment(SegmentKey const& source, ConditionalExpression const& condition);
    bool Pop(); // takes the last one away; false if there is none
    StyleControl& UnsetEverything();
    bool Show(StyleKeyArray& styles) const; // in the order they were pushed
    std::size_t GetCount() const;

private:
    Key segment_;
};

} // namespace HPS
