#pragma once
#include <array>
#include <hps/GlyphKit.h>
#include <hps/ImageKit.h>
#include <hps/LegacyShaderKit.h>
#include <hps/LinePatternKit.h>
#include <hps/MaterialKit.h>
#include <hps/ShapeKit.h>
#include <hps/TextureOptionsKit.h>

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
    // Same name in the same portfolio.
    friend bool operator==(Definition const& a, Definition const& b)
    {
        return a.portfolio_ == b.portfolio_ && a.name_ == b.name_;
    }

protected:
    Definition(Key const& portfolio, UTF8 name) : portfolio_(portfolio), name_(std::move(name)) {}
    Key portfolio_;
    UTF8 name_;
};

template <HPS::Type Kind> class DefinitionOf : public Definition
{
public:
    static constexpr HPS::Type StaticType = Kind;
    DefinitionOf() = default;
    DefinitionOf(Key const& portfolio, UTF8 name) : Definition(portfolio, std::move(name)) {}
    HPS::Type Type() const override;
};

// A definition that is one value.
template <HPS::Type Kind, class Value> class ValueDefinition : public DefinitionOf<Kind>
{
public:
    using DefinitionOf<Kind>::DefinitionOf;
    bool Show(Value& value) const;
    bool Set(Value const& value); // all who use the name take the new value
};

using ImageDefinition = ValueDefinition<Type::ImageDefinition, ImageKit>;
using LinePatternDefinition = ValueDefinition<Type::LinePatternDefinition, LinePatternKit>;
using GlyphDefinition = ValueDefinition<Type::GlyphDefinition, GlyphKit>;
using ShapeDefinition = ValueDefinition<Type::ShapeDefinition, ShapeKit>;
using LegacyShaderDefinition = ValueDefinition<Type::LegacyShaderDefinition, LegacyShaderKit>;
// Materials by number, from 0.
using MaterialPaletteDefinition = ValueDefinition<Type::MaterialPaletteDefinition, MaterialKitArray>;

// A style by name: the attributes of its source segment.
class NamedStyleDefinition : public DefinitionOf<Type::NamedStyleDefinition>
{
public:
    using DefinitionOf::DefinitionOf;
    // The segment whose attributes the style gives. A change of them reaches every segment with the style.
    SegmentKey GetSource() const;
};

// Images of the six sides of the surroundings: right, left, above, below, before and behind.
using CubeMapImages = std::array<ImageDefinition, 6>;

// An image as it lies on surfaces.
class TextureDefinition : public DefinitionOf<Type::TextureDefinition>
{
public:
    using DefinitionOf::DefinitionOf;
    bool ShowImage(ImageDefinition& image) const; // false if that is gone
    bool ShowOptions(TextureOptionsKit& options) const;
    bool SetOptions(TextureOptionsKit const& options);
};

class CubeMapDefinition : public DefinitionOf<Type::CubeMapDefinition>
{
public:
    using DefinitionOf::DefinitionOf;
    bool ShowImages(CubeMapImages& images) const; // those that are gone are empty
    bool ShowOptions(TextureOptionsKit& options) const;
    bool SetOptions(TextureOptionsKit const& options);
};

} // namespace HPS
