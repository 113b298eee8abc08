#pragma once

#include "Profile.h"

#include <narmeta/infra/ZELReference.h>

namespace samples
{

/// Which face of a solid is meant, for colours.
enum class FaceKind { Side, Top, Bottom };

/// Makes a body of a reference from solids of extrusion and revolution along the z axis: faces with exact
/// normals, edges where faces meet, vertices where edges meet. Points are rounded to a thousandth of a
/// millimetre, so that the sample is the same text on every machine.
class Modeller
{
public:
    explicit Modeller(std::shared_ptr<NarMetaInfra::ZELReference> reference, std::wstring bodyName = {});

    Modeller& Colour(NarMeta::Colour colour);
    Modeller& Alpha(unsigned short alpha);
    /// The first outline is the outer one, the others are holes.
    Modeller& Extrude(std::vector<Outline> const& outlines, double bottom, double top);
    /// An outline in (radius, z), once around. Where it touches the axis it may stay open.
    Modeller& Revolve(Outline const& outline);
    /// Colours the faces of the last solid of that kind.
    Modeller& FaceColour(FaceKind kind, NarMeta::Colour colour);

    /// Hands the body to the reference.
    void Finish();

private:
    void addFace(FaceKind kind, std::vector<float> const& points, std::vector<float> const& normals,
                 std::vector<std::uint32_t> const& triangles);
    void addEdge(std::vector<float> const& points);
    void addVertex(double x, double y, double z);
    void addCap(std::vector<std::vector<Point2>> const& outlines, std::vector<std::uint32_t> const& triangles,
                double z, FaceKind kind);
    void addSides(Outline const& outline, double bottom, double top);

    std::shared_ptr<NarMetaInfra::ZELReference> reference_;
    NarMetaInfra::BrepBody body_;
    /// Kinds of the faces of the last solid, which are the last faces of the body.
    std::vector<FaceKind> kinds_;
};

} // namespace samples
