#pragma once
#include <hps/LinePatternKit.h>
#include <hps/MaterialKit.h>

namespace HPS
{

using MaterialKitArray = std::vector<MaterialKit>;

// Handle of something that a portfolio holds under a name. It is found by that name each time it is used;
// once it is undefined the handle's type is None and its operations do nothing.
class Definition : public Object
{
public:
    Definition() = default;

    UTF8 Name() const { return Empty() ? UTF8() : name_; }
    // The portfolio, as a plain key.
    Key Portfolio() const { return Empty() ? Key() : portfolio_; }
    friend bool operator==(Definition const& a, Definition const& b)
    {
        return a.portfolio_ == b.portfolio_ && a.name_ == b.name_;
    }

protected:
    Definition(Key const& portfolio, UTF8 name) : portfolio_(portfolio), name_(std::move(name)) {}
    Key portfolio_;
    UTF8 name_;
};

// A style by name: the attributes of its source segment.
class NamedStyleDefinition : public Definition
{
public:
    NamedStyleDefinition() = default;
    NamedStyleDefinition(Key const& portfolio, UTF8 name) : Definition(portfolio, std::move(name)) {}
    HPS::Type Type() const override;
    // The segment whose attributes the style gives. A change of them reaches every segment with the style.
    SegmentKey GetSource() const;
};

class LinePatternDefinition : public Definition
{
public:
    LinePatternDefinition() = default;
    LinePatternDefinition(Key const& portfolio, UTF8 name) : Definition(portfolio, std::move(name)) {}
    HPS::Type Type() const override;
    bool Show(LinePatternKit& kit) const;
    bool Set(LinePatternKit const& kit);
};

// Materials by number, from 0.
class MaterialPaletteDefinition : public Definition
{
public:
    MaterialPaletteDefinition() = default;
    MaterialPaletteDefinition(Key const& portfolio, UTF8 name) : Definition(portfolio, std::move(name)) {}
    HPS::Type Type() const override;
    bool Show(MaterialKitArray& materials) const;
    bool Set(MaterialKitArray const& materials);
};

} // namespace HPS
