#pragma once
#include "portfolio_record.h"

namespace HPS::scene
{

// A kind of definition: its name, as it stands in files, and where a portfolio keeps them.
template <class Value> struct DefinitionKind {
    std::string_view name;
    Definitions<Value> PortfolioRecord::*definitions;
};
template <class Value> DefinitionKind(char const*, Definitions<Value> PortfolioRecord::*)
    -> DefinitionKind<Value>;

// A new kind of definition travels once it has a line here.
inline constexpr std::tuple definitionKinds{
    DefinitionKind{"NamedStyle", &PortfolioRecord::styles},
    DefinitionKind{"LinePattern", &PortfolioRecord::linePatterns},
    DefinitionKind{"MaterialPalette", &PortfolioRecord::palettes},
    DefinitionKind{"Image", &PortfolioRecord::images},
    DefinitionKind{"Texture", &PortfolioRecord::textures},
    DefinitionKind{"CubeMap", &PortfolioRecord::cubeMaps},
    DefinitionKind{"Glyph", &PortfolioRecord::glyphs},
    DefinitionKind{"Shape", &PortfolioRecord::shapes},
    DefinitionKind{"LegacyShader", &PortfolioRecord::legacyShaders},
};

template <class F> void forEachDefinitionKind(F&& f)
{
    std::apply([&](auto const&... kind) { (f(kind), ...); }, definitionKinds);
}

} // namespace HPS::scene
