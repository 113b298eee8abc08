#include "caps.h"

namespace HPS::render
{
namespace
{

/// A convex polygon in a plane, or two ends of a line.
using Piece = std::vector<Vec3>;
using Pieces = std::vector<Piece>;

/// The parts of a piece on both sides of a plane; what lies in it counts as behind.
struct Halves {
    Piece front, back;
};

Halves split(Piece const& piece, CutPlane const& plane)
{
    Halves halves;
    std::size_t const count = piece.size();
    for (std::size_t i = 0; i < count; ++i) {
        Vec3 const& a = piece[i];
        double const from = plane.at(a);
        (from > 0 ? halves.front : halves.back).push_back(a);
        if (count == 2 && i == 1) break; // a line does not come back to its start
        Vec3 const& b = piece[(i + 1) % count];
        double const to = plane.at(b);
        if ((from > 0) == (to > 0)) continue;
        Vec3 const at = a + (b - a) * (from / (from - to));
        halves.front.push_back(at);
        halves.back.push_back(at);
    }
    std::size_t const least = count == 2 ? 2 : 3;
    if (halves.front.size() < least) halves.front.clear();
    if (halves.back.size() < least) halves.back.clear();
    return halves;
}

bool liesIn(Piece const& piece, CutPlane const& plane, double margin)
{
    for (Vec3 const& corner : piece)
        if (std::abs(plane.at(corner)) > margin) return false;
    return true;
}

/// What the other planes and sections leave of pieces on plane `own` of section `of`.
class Trimmer
{
public:
    Trimmer(CutMesh const& mesh, std::span<CutSection const> sections, std::size_t of, std::size_t own)
        : mesh_(mesh), sections_(sections), of_(of), own_(own)
    {
    }

    bool needed() const { return sections_.size() > 1 || sections_[of_].size() > 1; }

    void run(Pieces& pieces) const
    {
        CutSection const& section = sections_[of_];
        for (std::size_t i = 0; i < section.size(); ++i)
            if (i != own_)
                replace(pieces, [&](Piece& piece, Pieces& out) { inFront(piece, section[i], out); });
        for (std::size_t i = 0; i < sections_.size(); ++i)
            if (i != of_)
                replace(pieces, [&](Piece& piece, Pieces& out) { outside(piece, sections_[i], out); });
    }

private:
    template <class F> static void replace(Pieces& pieces, F const& use)
    {
        Pieces out;
        for (Piece& piece : pieces) use(piece, out);
        pieces = std::move(out);
    }

    // The section takes away only what lies before all its planes, so only there does it leave a wall.
    void inFront(Piece& piece, CutPlane const& plane, Pieces& out) const
    {
        if (liesIn(piece, plane, marginOf(mesh_, plane))) { // a plane given twice
            out.push_back(std::move(piece));
            return;
        }
        Piece front = split(piece, plane).front;
        if (!front.empty()) out.push_back(std::move(front));
    }

    void outside(Piece& piece, CutSection const& section, Pieces& out) const
    {
        if (section.empty()) return out.push_back(std::move(piece));
        for (CutPlane const& plane : section) {
            if (liesIn(piece, plane, marginOf(mesh_, plane))) return out.push_back(std::move(piece));
            Halves halves = split(piece, plane);
            if (!halves.back.empty()) out.push_back(std::move(halves.back));
            piece = std::move(halves.front);
            if (piece.empty()) return;
        }
    }

    CutMesh const& mesh_;
    std::span<CutSection const> sections_;
    std::size_t of_, own_;
};

void trimFaces(std::vector<Vec3>& triangles, Trimmer const& trimmer)
{
    if (!trimmer.needed()) return;
    Pieces pieces;
    for (std::size_t i = 0; i + 2 < triangles.size(); i += 3)
        pieces.push_back({triangles[i], triangles[i + 1], triangles[i + 2]});
    trimmer.run(pieces);
    triangles.clear();
    for (Piece const& piece : pieces)
        for (std::size_t i = 2; i < piece.size(); ++i)
            triangles.insert(triangles.end(), {piece[0], piece[i - 1], piece[i]});
}

void addEdges(Outline const& outline, Trimmer const& trimmer, std::vector<Vec3>& edges)
{
    Pieces pieces;
    for (Outline::Chain const& chain : outline.chains)
        for (std::uint32_t i = 0; i + (chain.loop ? 0 : 1) < chain.count; ++i) {
            Vec3 const& a = outline.points[chain.first + i];
            Vec3 const& b = outline.points[chain.first + (i + 1) % chain.count];
            if (!(a == b)) pieces.push_back({a, b});
        }
    if (trimmer.needed()) trimmer.run(pieces);
    for (Piece const& piece : pieces) edges.insert(edges.end(), piece.begin(), piece.end());
}

/// Where faces lie in the plane, the outlines right before and right behind it differ. There is a wall only
/// where material stands on both sides, so the smaller of the two counts.
std::vector<Vec3> fillSmaller(CutMesh const& mesh, CutPlane const& plane, CapFiller& filler, Outline& outline)
{
    std::vector<Vec3> triangles = filler.fill(outline, plane);
    if (!outline.touching) return triangles;
    Outline other = outlineOf(mesh, plane, false);
    std::vector<Vec3> behind = filler.fill(other, plane);
    if (areaOf(behind) < areaOf(triangles)) {
        outline = std::move(other);
        return behind;
    }
    return triangles;
}

} // namespace

Caps makeCaps(CutMesh const& mesh, std::span<CutSection const> sections, CapFiller& filler)
{
    Caps caps;
    for (std::size_t s = 0; s < sections.size(); ++s)
        for (std::size_t p = 0; p < sections[s].size(); ++p) {
            CutPlane const& plane = sections[s][p];
            Outline outline = outlineOf(mesh, plane, true);
            Cap cap{normalised(plane.normal, {0, 0, 1}), fillSmaller(mesh, plane, filler, outline)};
            Trimmer const trimmer(mesh, sections, s, p);
            trimFaces(cap.triangles, trimmer);
            if (!cap.triangles.empty()) caps.faces.push_back(std::move(cap));
            addEdges(outline, trimmer, caps.edges);
        }
    return caps;
}

} // namespace HPS::render
