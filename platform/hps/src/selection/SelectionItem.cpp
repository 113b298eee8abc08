#include <hps/SelectionItem.h>

namespace HPS
{

bool SelectionItem::ShowSelectedItem(Key& key) const
{
    if (Empty()) return false;
    key = path_.Front();
    return true;
}

bool SelectionItem::ShowPath(KeyPath& path) const
{
    if (Empty()) return false;
    path = path_;
    return true;
}

bool SelectionItem::ShowSelectionPosition(Point& position) const
{
    if (Empty()) return false;
    position = position_;
    return true;
}

bool SelectionItem::ShowFaces(SizeTArray& faces) const
{
    if (parts_.faces.empty()) return false;
    faces = parts_.faces;
    return true;
}

bool SelectionItem::ShowEdges(SizeTArray& from, SizeTArray& to) const
{
    if (parts_.edges.empty()) return false;
    from.clear();
    to.clear();
    for (auto const& [first, second] : parts_.edges) {
        from.push_back(first);
        to.push_back(second);
    }
    return true;
}

bool SelectionItem::ShowVertices(SizeTArray& vertices) const
{
    if (parts_.vertices.empty()) return false;
    vertices = parts_.vertices;
    return true;
}

} // namespace HPS
