#pragma once
#include <mora/EntityId.h>
#include <mora/RenderId.h>
#include <string>
#include <vector>

namespace MoraCore
{

class AContent;

/// Shows some content in one way, for instance as a tree, and knows the ids under which it does.
class IContentRenderer
{
public:
    using EntityId = ZELVizCore::EntityId;
    using RenderId = ZELVizCore::RenderId;

    /// What the host calls this way of showing.
    virtual std::wstring GetRendererName() const = 0;
    virtual ~IContentRenderer() = default;
    virtual bool Render() = 0;
    virtual bool CanRenderType(AContent* content) = 0;
    virtual bool Convert(RenderId const& id, EntityId& entity) = 0;
    virtual bool Convert(EntityId const& entity, RenderId& id) = 0;
    /// The user opened a node.
    virtual bool Activate(RenderId& id) = 0;
    /// The nodes to mark when `id` is highlighted.
    virtual bool ConvertToHighlight(RenderId const& id, std::vector<RenderId>& ids) = 0;
    virtual float GetGeometryRadius() { return 0; }
    virtual float const* GetGeometryCenter() { return nullptr; }
    virtual std::wstring GetToolTip(RenderId const& id) = 0;
    virtual bool GetBodyList(std::vector<EntityId>& bodies) = 0;
};

} // namespace MoraCore
