#include "SegmentDrawer.h"
#include "GlyphStore.h"
#include "geometry_records.h"
#include "wide.h"
#include <algorithm>

namespace HPS::render
{

using namespace scene;

void SegmentDrawer::draw(SegmentRecord const& segment, Look const& look, FaceLooks& surfaces,
                         Mat4 const& matrix)
{
    MeshCache& meshes = MeshCache::instance();
    MeshCache::Content const& content = meshes.content(segment);
    list_.manner = look.manner;
    Fineness const& fine = look.fineness;
    if (content.faces && look.facesShown) drawFaces(segment, look, surfaces, matrix);
    // Where faces are not seen, their outlines stand for them.
    EdgeChoice edges = look.edges;
    if (where_.outlined && look.facesShown && !edges.any())
        edges.kinds = PerimeterEdge | HardEdge | SilhouetteEdge;
    if (content.faces && edges.any()) drawEdges(segment, edges, look, matrix);
    if (content.chains && look.linesShown) drawLines(segment, look, matrix);
    if (content.endless && look.linesShown)
        add(meshes.endlessStrokes(segment), Primitive::Strokes, look.line, matrix,
            std::numeric_limits<float>::infinity());
    if (content.markers && look.markersShown) {
        if (look.markerGlyph)
            add(meshes.glyphMarkers(segment, *look.markerGlyph, look.markerRotation), Primitive::Glyphs,
                look.marker, matrix);
        else
            add(meshes.markers(segment), Primitive::Markers, look.marker, matrix);
    }
    if (content.faces && look.verticesShown) {
        if (look.markerGlyph)
            add(meshes.glyphVertices(segment, *look.markerGlyph, look.markerRotation, fine),
                Primitive::Glyphs, look.vertex, matrix);
        else
            add(meshes.vertices(segment, look.plainVertices, fine), Primitive::Markers, look.vertex, matrix);
    }
    if (!content.texts.empty() && look.text.shown) drawTexts(content.texts, look, matrix);
    if (content.faces && look.contours) {
        auto const wrap = std::uint32_t(look.contours->strokes.size());
        for (std::uint32_t i = 0; i < wrap; ++i)
            add(meshes.contours(segment, look.contours->lines, wrap, i, fine), Primitive::Lines,
                look.contours->strokes[i], matrix);
    }
}

void SegmentDrawer::drawFaces(SegmentRecord const& segment, Look const& look, FaceLooks& surfaces,
                              Mat4 const& matrix)
{
    MeshCache& meshes = MeshCache::instance();
    MeshCache::Drawable const* drawable = &meshes.faces(segment, look.plainFaces, look.fineness);
    if (surfaces.textured(*drawable))
        drawable = &meshes.withParameters(segment, look.plainFaces, look.fineness);
    auto const parts = faceParts(surfaces, *drawable, list_.materials);
    bool const opaque =
        std::none_of(parts.begin(), parts.end(), [](FacePart const& part) { return part.transparent; });
    for (FacePart const& part : parts) {
        Pipeline pipeline;
        pipeline.transparent = part.transparent;
        pipeline.cullBack = look.cullBack || part.cullBack;
        pipeline.cullFront = part.cullFront;
        pipeline.closed = drawable->closed && opaque;
        pipeline.displacement = look.displacement;
        pipeline.surface = part.surface.kind;
        Instance instance{};
        std::copy_n(part.colour, 4, instance.colour);
        instance.size = look.face.size;
        instance.flags = look.face.flags;
        instance.material = packMaterial(part.surface.row, 0);
        emit(*drawable, pipeline, part.range, matrix, instance);
    }
}

void SegmentDrawer::drawEdges(SegmentRecord const& segment, EdgeChoice const& choice, Look const& look,
                              Mat4 const& matrix)
{
    MeshCache& meshes = MeshCache::instance();
    MeshCache::Drawable const& edges = meshes.edges(segment, choice, look.plainEdges, look.fineness);
    if (look.edge.styled)
        add(meshes.edgeStrokes(segment, choice, look.fineness), Primitive::Strokes, look.edge, matrix);
    else
        add(edges, Primitive::Lines, look.edge, matrix);
    if (edges.viewEdges)
        add(meshes.viewEdges(segment, choice, look.plainEdges, look.fineness), Primitive::ViewEdges,
            look.edge, matrix);
}

void SegmentDrawer::drawLines(SegmentRecord const& segment, Look const& look, Mat4 const& matrix)
{
    MeshCache& meshes = MeshCache::instance();
    if (look.line.styled)
        add(meshes.lineStrokes(segment, look.fineness), Primitive::Strokes, look.line, matrix);
    else
        add(meshes.lines(segment, look.fineness), Primitive::Lines, look.line, matrix);
    for (auto const& [where, glyph] : look.lineGlyphs) {
        constexpr float widths = 4; // of the line, that a drawing on it takes
        Look::Stroke stroke = look.line;
        stroke.size *= widths;
        add(meshes.lineGlyphs(segment, glyph, where, look.fineness), Primitive::Glyphs, stroke, matrix);
    }
}

void SegmentDrawer::drawTexts(std::vector<SlotIndex> const& slots, Look const& look, Mat4 const& matrix)
{
    for (SlotIndex slot : slots) {
        if (where_.only != 0 && slot != where_.only) continue;
        auto const* const geometry = store().at<GeometryRecord>(slot);
        Shown const shown = geometry != nullptr ? shownBy(*geometry) : Shown{};
        if (shown.geometry == nullptr) continue;
        texts_.add(list_, slot, static_cast<TextRecord const*>(shown.geometry)->data, look.text,
                   shown.matrix != nullptr ? wide(*shown.matrix) * matrix : matrix, where_.sectionSet);
    }
    // One line that every instance stretches to its own.
    for (auto const& [from, to] : texts_.leaderLines()) {
        Mat4 stretched = identity;
        stretched[0] = double(to.x) - from.x;
        stretched[1] = double(to.y) - from.y;
        stretched[2] = double(to.z) - from.z;
        stretched[12] = from.x;
        stretched[13] = from.y;
        stretched[14] = from.z;
        Look::Stroke const& stroke = look.line;
        bool const thin = stroke.size <= 1 && (stroke.flags & (SizeInWorld | SizeInWindow)) == 0;
        Pipeline pipeline;
        pipeline.primitive = thin ? Primitive::ThinLines : Primitive::Lines;
        pipeline.transparent = look.text.colour[3] < 255;
        Instance instance{};
        std::copy_n(look.text.colour, 4, instance.colour);
        instance.size = stroke.size;
        instance.flags = stroke.flags;
        instance.material = packMaterial(0, where_.sectionSet);
        Mesh const& line = GlyphStore::instance().unitLine();
        list_.add(pipeline, line.range(), line.box(), stretched, instance);
    }
    texts_.clearLeaderLines();
}

void SegmentDrawer::add(MeshCache::Drawable const& drawable, Primitive primitive, Look::Stroke const& stroke,
                        Mat4 const& matrix, float reach)
{
    if (drawable.mesh.empty() || stroke.colour[3] == 0) return;
    Pipeline pipeline;
    bool const thin = stroke.size <= 1 && (stroke.flags & (SizeInWorld | SizeInWindow)) == 0;
    pipeline.primitive = primitive == Primitive::Lines && thin ? Primitive::ThinLines : primitive;
    pipeline.transparent = stroke.transparent() || drawable.translucent;
    Instance instance{};
    std::copy_n(stroke.colour, 4, instance.colour);
    instance.size = stroke.size;
    if (stroke.inObject) instance.size *= float(std::cbrt(std::abs(determinant3(matrix))));
    instance.flags = stroke.flags;
    if (primitive == Primitive::Strokes) {
        strokes_.hasStrokes = true; // tables and lengths are the list's, for highlights too
        instance.material = packMaterial(stroke.pattern, 0);
        instance.flags &= (1u << glyphShift) - 1;
        if ((stroke.flags & SizeInWorld) == 0 && drawable.chains != nullptr)
            if (auto const first = strokes_.screenStrokes.place(drawable.chains, matrix))
                instance.flags |= DistancesGiven | *first << glyphShift;
    }
    emit(drawable, pipeline, drawable.mesh.range(), matrix, instance, reach);
}

void SegmentDrawer::emit(MeshCache::Drawable const& drawable, Pipeline pipeline, MeshRange const& range,
                         Mat4 const& matrix, Instance instance, float reach)
{
    instance.material = packMaterial(instance.material, where_.sectionSet);
    // Over the same faces in the model's own look.
    if (where_.overFaces && pipeline.primitive == Primitive::Faces) --pipeline.displacement;
    if (where_.only == 0) return list_.add(pipeline, range, drawable.mesh.box(), matrix, instance, reach);
    for (MeshCache::Part const& part : drawable.parts) {
        if (part.geometry != where_.only) continue;
        std::uint32_t const first = drawable.mesh.range().firstIndex + part.firstIndex;
        MeshRange shared = range;
        shared.firstIndex = std::max(range.firstIndex, first);
        std::uint32_t const end = std::min(range.firstIndex + range.indexCount, first + part.indexCount);
        shared.indexCount = end > shared.firstIndex ? end - shared.firstIndex : 0;
        list_.add(pipeline, shared, drawable.mesh.box(), matrix, instance, reach);
    }
}

} // namespace HPS::render
