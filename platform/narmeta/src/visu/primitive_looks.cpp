// What a face or an edge looks like below a node: the node's word first, then its own.
#include <narmeta/visu/Node.h>

namespace NarMetaVisu
{

namespace
{

template <class Overrides, class Primitive> bool LookOf(Overrides const& overrides,
                                                        std::shared_ptr<Primitive> const& primitive,
                                                        std::shared_ptr<Attributes>& attributes)
{
    if (!primitive) return false;
    auto const found = overrides.find(primitive);
    auto const& look = found != overrides.end() ? found->second : primitive->GetAttributes();
    if (!look || !look->HasData()) return false;
    attributes = look;
    return true;
}

/// The maps are keyed by shared pointers; they order by address alone, so that an alias that owns nothing
/// finds them.
template <class Overrides, class Primitive>
Attributes const* FindLook(Overrides const& overrides, Primitive const& primitive)
{
    std::shared_ptr<Primitive> const alias(std::shared_ptr<Primitive>(), const_cast<Primitive*>(&primitive));
    std::shared_ptr<Attributes> look;
    return LookOf(overrides, alias, look) ? look.get() : nullptr;
}

template <class Primitive>
Attributes const* LookBelow(std::shared_ptr<Node> const& node, Primitive const& primitive)
{
    return node ? node->FindAttributes(primitive) : primitive.GetAttributes().get();
}

} // namespace

void Node::SetFaceAttributes(std::shared_ptr<FaceRep> const& face, std::shared_ptr<Attributes> attributes)
{
    faceAttributes_[face] = std::move(attributes);
}

void Node::SetEdgeAttributes(std::shared_ptr<EdgeRep> const& edge, std::shared_ptr<Attributes> attributes)
{
    edgeAttributes_[edge] = std::move(attributes);
}

bool Node::GetFaceAttributes(std::shared_ptr<FaceRep> const& face,
                             std::shared_ptr<Attributes>& attributes) const
{
    return LookOf(faceAttributes_, face, attributes);
}

bool Node::GetEdgeAttributes(std::shared_ptr<EdgeRep> const& edge,
                             std::shared_ptr<Attributes>& attributes) const
{
    return LookOf(edgeAttributes_, edge, attributes);
}

Attributes const* Node::FindAttributes(FaceRep const& face) const
{
    return FindLook(faceAttributes_, face);
}

Attributes const* Node::FindAttributes(EdgeRep const& edge) const
{
    return FindLook(edgeAttributes_, edge);
}

bool FaceRep::GetRGBColor(std::shared_ptr<Node> const& node, unsigned short& red, unsigned short& green,
                          unsigned short& blue) const
{
    auto const* look = LookBelow(node, *this);
    return look && look->GetRGBColor(red, green, blue);
}

bool FaceRep::GetAlphaColor(std::shared_ptr<Node> const& node, unsigned short& alpha) const
{
    auto const* look = LookBelow(node, *this);
    return look && look->GetAlphaColor(alpha);
}

bool EdgeRep::GetRGBColor(std::shared_ptr<Node> const& node, unsigned short& red, unsigned short& green,
                          unsigned short& blue) const
{
    auto const* look = LookBelow(node, *this);
    return look && look->GetRGBColor(red, green, blue);
}

bool EdgeRep::GetAlphaColor(std::shared_ptr<Node> const& node, unsigned short& alpha) const
{
    auto const* look = LookBelow(node, *this);
    return look && look->GetAlphaColor(alpha);
}

} // namespace NarMetaVisu
