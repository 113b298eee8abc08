#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "open_cascade_materials.h"
#include "open_cascade_style.h"
#include "open_cascade_tessellation.h"
#include "visualisation_nodes.h"

#include <narmeta/infra/BrepBody.h>

#include <functional>
#include <map>
#include <unordered_set>

#include <Poly_Triangulation.hxx>
#include <TopTools_MapOfShape.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Vertex.hxx>

namespace NarMetaInfra
{
/// Turns the triangulated shapes of one part into bodies. A solid is a body, and so are a shell outside a
/// solid, the loose faces of one group, and the loose curves and points of one group; what is hidden in a
/// visible body goes into one of its own.
class PartConverter
{
public:
    /// Called for each body, face, edge and vertex that has an entity number in the file.
    using EntityNamer = std::function<void(int number, Id id)>;

    PartConverter(KernelDocument const& document, Id partId, TessellationTolerance const& tolerance);

    /// Keeps materials and texture coordinates of faces. @p maker must outlive this.
    void setMaterials(MaterialMaker& maker) { Materials = &maker; }
    FaceSurfaces takeSurfaces() { return std::move(Surfaces); }
    /// Id of each face that was converted, by its shape.
    std::unordered_map<TopoDS_TShape const*, Id> const& faceIds() const { return FaceIds; }

    void setNamer(EntityNamer namer) { Namer = std::move(namer); }
    /// May be called more than once: a part may be spread over labels.
    void add(TopoDS_Shape const& shape, PartStyles const& styles);
    std::vector<BrepBody> takeBodies();

    /// Faces left out because nothing sensible could be made of them: how many, and the entity numbers of the
    /// first ones. Empty if there are none.
    std::string droppedText() const;
    /// A face has a colour of its own, apart from the body's.
    bool hasFaceColours() const { return HasFaceColours; }

private:
    // Shapes that become one body, gathered before it is filled.
    struct Group {
        TopoDS_Shape shape;
        ShapeStyle style;
        std::vector<std::pair<TopoDS_Face, ShapeStyle>> faces;
        std::vector<std::pair<TopoDS_Shape, ShapeStyle>> loose;
    };

    void visit(TopoDS_Shape const& shape, ShapeStyle const& outer, Group* group);
    void visitChildren(TopoDS_Shape const& shape, ShapeStyle const& style, Group* group);
    void convert(Group const& group);
    void fillFaces(BrepBody& body, Group const& group, bool hidden);
    void fillLoose(BrepBody& body, Group const& group, bool hidden);
    bool addFace(BrepBody& body, TopoDS_Face const& face, ShapeStyle const& style);
    /// @p sources: for each point the number of its node.
    bool addSmoothedFace(BrepBody& body, Handle(Poly_Triangulation) const& source, gp_Trsf const& placement,
                         bool flipped, std::vector<std::uint32_t>& sources);
    void addSurface(Id face, Poly_Triangulation const& mesh, ShapeStyle const& style,
                    std::vector<std::uint32_t> const& sources);
    void addFaceEdges(BrepBody& body, TopoDS_Face const& face);
    void addEdge(BrepBody& body, TopoDS_Edge const& edge, std::optional<Colour> colour);
    void addVertices(BrepBody& body, TopoDS_Shape const& shape);
    void finishEdge(BrepBody& body, TopoDS_Edge const& edge, std::uint32_t first);
    Id idOf(TopoDS_Shape const& shape, std::string_view kind);

    KernelDocument const& Document;
    Id PartId;
    TessellationTolerance Tolerance;
    EntityNamer Namer;
    PartStyles const* Styles = nullptr;
    MaterialMaker* Materials = nullptr;
    FaceSurfaces Surfaces;
    std::unordered_map<TopoDS_TShape const*, Id> FaceIds;
    std::vector<BrepBody> Bodies;
    std::unordered_set<Id> Used;
    std::map<std::string_view, Id> Ordinals;
    TopTools_MapOfShape SeenEdges, SeenVertices; // of the body being filled
    std::vector<int> DroppedFaces;               // entity numbers, 0 where the file has none
    bool HasFaceColours = false;
};
} // namespace NarMetaInfra
