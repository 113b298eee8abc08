#include "SectionCompiler.h"
#include "caps.h"
#include "geometry_records.h"
#include "plane_shapes.h"
#include "wide.h"
#include <hps/CuttingSectionAttributeKit.h>
#include <utility>

namespace HPS::render
{
namespace
{

using namespace scene;
using namespace CuttingSection;

/// Of the affine part; the identity for a matrix that flattens space.
Mat4 inverse(Mat4 const& m)
{
    double const determinant = determinant3(m);
    if (!(std::abs(determinant) > 0)) return identity;
    Vec3 const x{m[0], m[1], m[2]}, y{m[4], m[5], m[6]}, z{m[8], m[9], m[10]}, t{m[12], m[13], m[14]};
    double const s = 1 / determinant;
    Vec3 const a = cross(y, z) * s, b = cross(z, x) * s, c = cross(x, y) * s; // columns of the inverse
    return {a.x, b.x, c.x, 0, a.y, b.y, c.y, 0, a.z, b.z, c.z, 0, -dot(t, a), -dot(t, b), -dot(t, c), 1};
}

CuttingSectionAttributeData const& attributes(NetAttributes const& net)
{
    return net.state->get<CuttingSectionAttributeData>();
}

/// True if the segment itself says how far caps reach.
bool setsCapping(SegmentRecord const& segment)
{
    for (KitPointer const& kit : segment.kits)
        if (kit->kind == KitKind::CuttingSectionAttribute)
            return valuesOf<CuttingSectionAttributeData>(kit.get()).cappingLevel.has_value();
    return false;
}

FaceVertex vertex(Vec3 const& at, Vec3 const& normal)
{
    FaceVertex v{};
    v.position[0] = float(at.x);
    v.position[1] = float(at.y);
    v.position[2] = float(at.z);
    v.normal[0] = std::int16_t(std::lround(normal.x * 32767));
    v.normal[1] = std::int16_t(std::lround(normal.y * 32767));
    v.normal[2] = std::int16_t(std::lround(normal.z * 32767));
    return v;
}

Mesh upload(Cap const& cap)
{
    std::vector<FaceVertex> vertices;
    for (Vec3 const& corner : cap.triangles) vertices.push_back(vertex(corner, cap.normal));
    std::vector<std::uint32_t> indices(vertices.size());
    for (std::uint32_t i = 0; i < indices.size(); ++i) indices[i] = i;
    return MeshStore::instance().addFaces(vertices, indices);
}

Mesh upload(std::vector<Vec3> const& ends)
{
    std::vector<LineSegment> segments;
    auto put = [](float(&out)[3], Vec3 const& p) {
        out[0] = float(p.x);
        out[1] = float(p.y);
        out[2] = float(p.z);
    };
    for (std::size_t i = 0; i + 1 < ends.size(); i += 2) {
        LineSegment segment{};
        put(segment.from, ends[i]);
        put(segment.to, ends[i + 1]);
        segments.push_back(segment);
    }
    return MeshStore::instance().addLines(segments);
}

/// Textures lie on the plane of a cap as on a wall: upright and unbent, in the same place for all bodies.
SurfaceMaterial onPlane(SurfaceMaterial material, Vec3 const& normal, double tile)
{
    if (material.layers.empty()) return material;
    Vec3 const n = normalised(normal, {0, 0, 1});
    Vec3 const some = std::abs(n.z) < 0.9 ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
    Vec3 const u = normalised(cross(some, n), {1, 0, 0}) * (1 / tile), v = cross(n, u);
    for (LayerRow& layer : material.layers) {
        if (layer.source != LayerSource::Parameters) continue;
        layer.source = LayerSource::World;
        for (float(*row)[4] : {&layer.u, &layer.v}) {
            float(&c)[4] = *row;
            Vec3 const along = u * double(c[0]) + v * double(c[1]);
            c[0] = float(along.x);
            c[1] = float(along.y);
            c[2] = float(along.z);
        }
    }
    material.kind.features.set(Feature::Projected);
    return material;
}

} // namespace

FaceSide capSide(NetState const& state)
{
    MaterialMappingData mapping = state.get<MaterialMappingData>();
    auto const& cuts = state.get<CuttingSectionAttributeData>();
    if (cuts.materialPreference != MaterialPreference::Implicit) {
        static MaterialMappingData const fallback = MaterialMappingKit::GetDefault().data();
        mapping.frontFace = mapping.cutFace ? mapping.cutFace : fallback.cutFace;
    }
    mapping.backFace = mapping.frontFace;
    return FaceLook(mapping, state).front;
}

void SectionCompiler::begin()
{
    placed_.clear();
    setNumbers_.clear();
    setNumbers_.emplace(std::vector<std::uint32_t>(), 0u);
    sections_.sets.assign(1, {});
    parts_.clear();
    trees_.clear();
    stale_ = false;
    partsChanged_ = true;
}

std::uint32_t SectionCompiler::intern(std::vector<std::uint32_t> const& set)
{
    auto const [found, isNew] = setNumbers_.try_emplace(set, std::uint32_t(sections_.sets.size()));
    if (isNew && sections_.sets.size() >= sectionSetLimit) { // more than anybody can tell apart
        setNumbers_.erase(found);
        return 0;
    }
    if (isNew) sections_.sets.push_back(set);
    return found->second;
}

// Numbers of the sections at a place. Those that only moved keep theirs.
std::vector<std::uint32_t> SectionCompiler::place(Place place, std::span<SlotIndex const> scenery,
                                                  Mat4 const& matrix)
{
    std::vector<std::uint32_t> before, now;
    for (std::uint32_t i = 0; i < placed_.size(); ++i)
        if (placed_[i].place == place) before.push_back(i);
    for (SlotIndex slot : scenery) {
        if (store().at<CuttingSectionRecord>(slot) == nullptr) continue;
        auto const same = std::find_if(before.begin(), before.end(),
                                       [&](std::uint32_t i) { return placed_[i].slot == slot; });
        if (same != before.end()) {
            placed_[*same].matrix = matrix;
            now.push_back(*same);
            continue;
        }
        now.push_back(std::uint32_t(placed_.size()));
        placed_.push_back({slot, place, matrix});
    }
    stale_ = stale_ || now != before;
    return now;
}

SectionCompiler::Scope SectionCompiler::enter(Place at, SegmentRecord const& segment,
                                              std::span<SlotIndex const> scenery, NetAttributes const& net,
                                              Scope const& owner)
{
    partsChanged_ = parts_.erase(at) != 0 || partsChanged_;
    Scope scope{owner.set, 0, owner.set};
    if (attributes(net).cappingLevel == CappingLevel::SegmentTree) {
        scope.tree = owner.tree;
        if (owner.tree == 0 || setsCapping(segment)) {
            scope.tree = at + 1;
            trees_[scope.tree] = wide(net.matrix);
        }
    }
    std::vector<std::uint32_t> found = place(at, scenery, wide(net.matrix));
    if (found.empty() || !net.state->get<VisibilityData>().shows(VisibilityKinds::CuttingSections, true))
        return scope;
    found.insert(found.begin(), sections_.sets[owner.set].begin(), sections_.sets[owner.set].end());
    scope.own = intern(found);
    if (attributes(net).cuttingLevel != CuttingLevel::Local) scope.set = scope.own;
    return scope;
}

void SectionCompiler::addBody(Place at, SegmentRecord const& segment, Look const& look, FaceSide const& side,
                              Box const& local, Mat4 const& matrix, Scope const& scope)
{
    if (!look.cut.faces && !look.cut.edges) return;
    parts_[at] = {segment.slot,  matrix, transformed(local, matrix), scope, look.cut,
                  look.fineness, side,   look.displacement};
    partsChanged_ = true;
}

void SectionCompiler::leave(Place at)
{
    partsChanged_ = parts_.erase(at) != 0 || partsChanged_;
    trees_.erase(at + 1);
    stale_ =
        stale_ || std::any_of(placed_.begin(), placed_.end(), [&](Placed const& p) { return p.place == at; });
}

void SectionCompiler::gatherBodies()
{
    if (!std::exchange(partsChanged_, false)) return;
    bodies_.clear();
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::size_t> trees; // bodies by tree and set
    for (auto const& [at, part] : parts_) {
        auto const root = trees_.find(part.scope.tree);
        bool const tree = root != trees_.end();
        Mat4 const& whole = tree ? root->second : part.matrix;
        std::size_t body = bodies_.size();
        if (tree) body = trees.try_emplace({part.scope.tree, part.scope.own}, body).first->second;
        if (body == bodies_.size())
            bodies_.push_back(
                {{}, {}, whole, part.scope.own, part.look, part.fineness, part.side, part.displacement});
        bodies_[body].members.push_back({part.segment, tree ? part.matrix * inverse(whole) : identity});
        bodies_[body].world.add(part.world);
    }
}

bool SectionCompiler::holds(SlotIndex slot) const
{
    return std::any_of(placed_.begin(), placed_.end(), [&](Placed const& p) { return p.slot == slot; });
}

void SectionCompiler::readPlanes()
{
    sections_.sections.assign(placed_.size(), {});
    for (std::size_t i = 0; i < placed_.size(); ++i)
        if (auto const* const section = store().at<CuttingSectionRecord>(placed_[i].slot))
            for (Plane const& plane : section->data.planes)
                sections_.sections[i].push_back(
                    pushedForward({{plane.a, plane.b, plane.c}, plane.d}, placed_[i].matrix));
}

void SectionCompiler::finish(Box const& bounds)
{
    caps_.clear();
    sections_.caps = nullptr;
    readPlanes();
    // A dozen repeats across all that is cut.
    tile_ = bounds.empty() ? 1 : std::max(bounds.diagonal() / 12, 1e-12);
    if (sections_.any()) {
        gatherBodies();
        for (Body const& body : bodies_)
            if (sections_.reach(body.set, body.world) == CutReach::Cut) close(body);
        showPlanes(bounds);
        sections_.caps = &caps_;
    }
    caps_.finish();
    for (auto i = capMeshes_.begin(); i != capMeshes_.end();)
        i = std::exchange(i->second.used, false) ? std::next(i) : capMeshes_.erase(i);
    if (!sections_.any()) CutMeshCache::instance().trim();
}

void SectionCompiler::close(Body const& body)
{
    CutMeshCache& cache = CutMeshCache::instance();
    double tolerance = body.look.tolerance;
    if (body.look.toleranceInPercent) tolerance *= 0.01 * body.world.diagonal();
    bool const tree = body.look.level == CappingLevel::SegmentTree;
    auto const* const segment = store().at<SegmentRecord>(body.members.front().segment);
    if (segment == nullptr) return;
    auto const& [serial, meshes] =
        tree ? cache.ofTree(body.members, body.fineness, tolerance)
             : cache.ofSegment(*segment, body.fineness, body.look.level == CappingLevel::Entity, tolerance);
    std::vector<CutSection> const local = pulledBack(sections_.inForce(body.set), body.matrix);
    for (std::size_t i = 0; i < meshes.size(); ++i) {
        if (reachOf(local, meshes[i].box()) != CutReach::Cut) continue;
        CapMesh const& caps = capMesh(meshes[i], serial << 20 | i, local);
        if (body.look.faces)
            for (CapMesh::Face const& face : caps.faces) addFace(face, body);
        if (body.look.edges) addEdges(caps.edges, body);
    }
}

SectionCompiler::CapMesh const& SectionCompiler::capMesh(CutMesh const& mesh, std::uint64_t serial,
                                                         std::vector<CutSection> const& local)
{
    std::vector<double> key{double(serial)};
    for (CutSection const& section : local) {
        key.push_back(double(section.size()));
        for (CutPlane const& p : section)
            key.insert(key.end(), {p.normal.x, p.normal.y, p.normal.z, p.offset});
    }
    auto const [found, isNew] = capMeshes_.try_emplace(std::move(key));
    CapMesh& result = found->second;
    result.used = true;
    if (isNew) {
        Caps const caps = makeCaps(mesh, local, filler_);
        for (Cap const& cap : caps.faces) result.faces.push_back({cap.normal, upload(cap)});
        result.edges = upload(caps.edges);
    }
    return result;
}

void SectionCompiler::addFace(CapMesh::Face const& face, Body const& body)
{
    FaceSide const& side = body.side;
    if (face.mesh.empty() || side.unseen()) return;
    // Behind the lines around it, as other faces are behind theirs.
    constexpr std::int16_t usual = 4;
    Pipeline pipeline;
    pipeline.transparent = side.transparent();
    pipeline.displacement = std::max(body.displacement, usual);
    Vec3 const normal = pushedForward({face.normal, 0}, body.matrix).normal;
    SurfaceId const surface = caps_.materials.intern(onPlane(side.material, normal, tile_));
    pipeline.surface = surface.kind;
    Instance instance{};
    std::copy_n(side.colour, 4, instance.colour);
    instance.flags = body.look.face.flags;
    instance.material = packMaterial(surface.row, 0);
    caps_.add(pipeline, face.mesh.range(), face.mesh.box(), body.matrix, instance);
}

void SectionCompiler::addEdges(Mesh const& mesh, Body const& body)
{
    Look::Stroke const& stroke = body.look.edge;
    if (mesh.empty() || stroke.colour[3] == 0) return;
    Pipeline pipeline;
    bool const thin = stroke.size <= 1 && (stroke.flags & SizeInWorld) == 0;
    pipeline.primitive = thin ? Primitive::ThinLines : Primitive::Lines;
    pipeline.transparent = stroke.transparent();
    Instance instance{};
    std::copy_n(stroke.colour, 4, instance.colour);
    instance.size = stroke.size;
    instance.flags = stroke.flags;
    caps_.add(pipeline, mesh.range(), mesh.box(), body.matrix, instance);
}

void SectionCompiler::showPlanes(Box const& bounds)
{
    indicators_.clear();
    for (std::size_t i = 0; i < placed_.size(); ++i) {
        auto const* const section = store().at<CuttingSectionRecord>(placed_[i].slot);
        if (section == nullptr || section->data.mode == Mode::None || bounds.empty()) continue;
        RGBAColor const& colour = section->data.color;
        Instance instance{};
        float const channels[4] = {colour.red, colour.green, colour.blue, colour.alpha};
        std::transform(channels, channels + 4, instance.colour, colourByte);
        instance.flags = Unlit;
        Pipeline pipeline;
        pipeline.transparent = instance.colour[3] < 255;
        for (CutPlane const& plane : sections_.sections[i]) {
            double const radius = 0.5 * section->data.scale * bounds.diagonal();
            Cap const shape{normalised(plane.normal, {0, 0, 1}),
                            planeShape(plane, bounds.centre(), radius, section->data.mode == Mode::Round)};
            indicators_.push_back(upload(shape));
            Mesh const& mesh = indicators_.back();
            caps_.add(pipeline, mesh.range(), mesh.box(), identity, instance);
        }
    }
}

} // namespace HPS::render
