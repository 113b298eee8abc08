#include "SortedTriangles.h"
#include <algorithm>

namespace HPS::render
{
namespace
{

Vec3 inWorld(float const (&p)[3], Instance const& instance)
{
    auto row = [&](int i) {
        auto const& r = instance.rows[i];
        return double(r[0]) * p[0] + double(r[1]) * p[1] + double(r[2]) * p[2] + double(r[3]);
    };
    return {row(0), row(1), row(2)};
}

template <class T, std::size_t N> void mix(T (&out)[N], std::array<FaceVertex, 3> const& from,
                                           T (FaceVertex::*slot)[N], std::array<float, 3> const& shares)
{
    for (std::size_t i = 0; i < N; ++i) {
        float sum = 0;
        for (std::size_t k = 0; k < 3; ++k) sum += float((from[k].*slot)[i]) * shares[k];
        if constexpr (std::is_integral_v<T>) sum = std::round(sum);
        out[i] = T(sum);
    }
}

/// A vertex between three others. What faces share, they share with it.
FaceVertex between(std::array<FaceVertex, 3> const& corners, std::array<float, 3> const& shares)
{
    FaceVertex vertex = corners[0];
    mix(vertex.position, corners, &FaceVertex::position, shares);
    mix(vertex.normal, corners, &FaceVertex::normal, shares);
    mix(vertex.colour, corners, &FaceVertex::colour, shares);
    return vertex;
}

} // namespace

void SortedTriangles::gather(DrawList const& list, bool split)
{
    sources_.clear();
    places_.clear();
    tree_.reset();
    pieces_ = {};
    std::vector<FaceVertex> vertices;
    std::vector<std::uint32_t> indices;
    std::vector<std::array<FaceVertex, 3>> corners; // of the sources, where they are to be cut
    for (std::uint32_t i = 0; i < list.records.size(); ++i) {
        Record const& record = list.records[i];
        if (record.gone() || !record.pipeline.transparent || record.pipeline.primitive != Primitive::Faces)
            continue;
        MeshStore::instance().readFaces(record.range, vertices, indices);
        for (std::size_t k = 0; k + 2 < indices.size(); k += 3) {
            std::array const c{indices[k], indices[k + 1], indices[k + 2]};
            Corners place;
            for (std::size_t j = 0; j < 3; ++j)
                place[j] = inWorld(vertices[c[j]].position, list.instances[i]);
            sources_.push_back({i, record.range.baseVertex, c});
            places_.push_back(place);
            if (split) corners.push_back({vertices[c[0]], vertices[c[1]], vertices[c[2]]});
        }
    }
    if (split) cut(corners);
    list_ = list.version;
    split_ = split;
}

void SortedTriangles::cut(std::vector<std::array<FaceVertex, 3>> const& vertices)
{
    tree_.emplace(places_);
    places_.clear();
    std::vector<FaceVertex> made;
    std::vector<Source> sources;
    for (SplitTriangles::Piece const& piece : tree_->pieces()) {
        auto const first = std::uint32_t(made.size());
        for (auto const& shares : piece.shares) made.push_back(between(vertices[piece.source], shares));
        sources.push_back({sources_[piece.source].record, 0, {first, first + 1, first + 2}});
    }
    std::vector<std::uint32_t> all(made.size());
    for (std::uint32_t i = 0; i < all.size(); ++i) all[i] = i;
    pieces_ = MeshStore::instance().addFaces(made, all);
    for (Source& source : sources) source.baseVertex = pieces_.range().baseVertex;
    sources_ = std::move(sources);
}

unsigned SortedTriangles::push(FrameContext const& context, bool split, CallList& calls)
{
    if (list_ != context.list.version || split_ != split) gather(context.list, split);
    Viewing const& view = context.viewing;
    SightPoint const from{view.target + view.back * view.distance, view.back, view.perspective};
    if (split)
        tree_->order(from, order_);
    else
        orderByMiddles(places_, from, order_);

    indices_.clear();
    indexBuffer_.create();
    for (std::size_t i = 0; i < order_.size();) {
        std::uint32_t const record = sources_[order_[i]].record, base = sources_[order_[i]].baseVertex;
        MeshRange range{std::uint32_t(indices_.size()), 0, base};
        for (; i < order_.size() && sources_[order_[i]].record == record; ++i) {
            auto const& corners = sources_[order_[i]].corners;
            indices_.insert(indices_.end(), corners.begin(), corners.end());
            range.indexCount += 3;
        }
        Pipeline pipeline = context.list.records[record].pipeline;
        pipeline.cut = isCut(context.list.instances[record]);
        calls.push(pipeline, context.instanceBuffer, range, record);
    }
    if (!indices_.empty()) indexBuffer_.fill(std::span<std::uint32_t const>(indices_));
    return indexBuffer_.name();
}

} // namespace HPS::render
