// Between tree ids, entity ids and key paths: not there yet, so every conversion answers false.

#include "ZELDocument.h"

namespace ZelVizBase
{

bool ZELDocument::Convert(RenderId const&, HPS::KeyPath&) const
{
    return false;
}

bool ZELDocument::Convert(EntityId const&, HPS::KeyPath&) const
{
    return false;
}

bool ZELDocument::Convert(HPS::KeyPath const&, EntityId&) const
{
    return false;
}

bool ZELDocument::Convert(HPS::KeyPath const&, RenderId&) const
{
    return false;
}

std::wstring ZELDocument::GetToolTip(RenderId const&) const
{
    return {};
}

bool ZELDocument::buildKeyPath(RenderId const&, HPS::KeyPath&, bool&, unsigned long long&,
                               std::shared_ptr<NarMetaInfra::ZELInstance>&,
                               std::shared_ptr<NarMetaInfra::ZELReference>&,
                               NarMetaPmi::PMIAnnotationType&) const
{
    return false;
}

bool ZELDocument::buildKeyPath(RenderId const&, HPS::KeyPath&, std::shared_ptr<ZELObjectMapper>&,
                               ZELVizCore::EntityType const&) const
{
    return false;
}

} // namespace ZelVizBase
