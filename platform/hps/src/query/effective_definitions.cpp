#include "bounding.h"
#include "portfolio_record.h"
#include <hps/KeyPath.h>

namespace HPS
{
using namespace scene;

namespace
{

template <class D> bool showEffective(KeyPath const& path, UTF8 const& name, D& definition)
{
    auto const segments = segmentsOf(path.Keys());
    if (!segments) return false;
    for (auto at = segments->size(); at-- > 0;) {
        auto const* const extras = (*segments)[at]->extras.get();
        if (!extras) continue;
        for (auto i = extras->portfolios.size(); i-- > 0;) {
            auto const portfolio = extras->portfolios[i];
            if (!definitionIn<D::StaticType>(portfolio, name.Str())) continue;
            definition = D(Key(portfolio), name);
            return true;
        }
    }
    return false;
}

} // namespace

#define HPS_DEFINITION(Name)                                                                                 \
    bool KeyPath::ShowEffective##Name##Definition(UTF8 const& name, Name##Definition& definition) const      \
    {                                                                                                        \
        return showEffective(*this, name, definition);                                                       \
    }
HPS_DEFINITION(Image)
HPS_DEFINITION(Texture)
HPS_DEFINITION(CubeMap)
HPS_DEFINITION(LinePattern)
HPS_DEFINITION(Glyph)
HPS_DEFINITION(Shape)
HPS_DEFINITION(LegacyShader)
HPS_DEFINITION(MaterialPalette)
HPS_DEFINITION(NamedStyle)
#undef HPS_DEFINITION

} // namespace HPS
