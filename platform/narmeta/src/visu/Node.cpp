#include <narmeta/visu/Node.h>

#include <algorithm>

namespace NarMetaVisu
{

std::string Node::NodeTypeAsString(NodeType type)
{
    switch (type) {
    case NodeType::Root:
        return "Root";
    case NodeType::Geometry:
        return "Geometry";
    case NodeType::GeometrySet:
        return "GeometrySet";
    case NodeType::Annotations:
        return "Annotations";
    case NodeType::DrawingSheet:
        return "DrawingSheet";
    case NodeType::ActiveDrawingSheet:
        return "ActiveDrawingSheet";
    case NodeType::Drawing:
        return "Drawing";
    }
    return "Node" + std::to_string(static_cast<int>(type));
}

bool Node::GetTransform(float const*& matrix, float const*& second) const
{
    if (!matrix_ || !matrix || second != matrix + 9) return false;
    // The caller's array is writable: the type of the pointers is part of the library's fixed interface.
    std::copy(matrix_->begin(), matrix_->end(), const_cast<float*>(matrix));
    return true;
}

} // namespace NarMetaVisu
