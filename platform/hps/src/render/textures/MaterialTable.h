#pragma once
#include "Features.h"
#include "MaterialRow.h"
#include "TextureStore.h"
#include "linear.h"
#include <unordered_map>

namespace HPS::render
{

/// The texture units of a material; diffuse layers come first.
enum TextureUnit : unsigned {
    DiffuseUnit = 0,
    SpecularUnit = 8,
    MirrorUnit,
    TransmissionUnit,
    EmissionUnit,
    BumpUnit,
    EnvironmentUnit,
    materialUnits ///< free for others from here on
};

struct UnitTexture {
    unsigned unit;
    Sampled sampled;
    friend bool operator==(UnitTexture const&, UnitTexture const&) = default;
};

/// What draws of one call have in common: the program's features and the textures.
struct SurfaceKind {
    Features features;                 ///< beyond those of a plain surface
    std::vector<UnitTexture> textures; ///< by unit
    friend bool operator==(SurfaceKind const&, SurfaceKind const&) = default;
};

/// A material worked out to what the device takes.
struct SurfaceMaterial {
    MaterialRow row;
    std::vector<LayerRow> layers; ///< the diffuse ones, then one for each flat texture of the kind, by unit
    SurfaceKind kind;
    bool translucent = false; ///< something but the diffuse colour makes it so

    /// Nothing but the colour is there: the plain program shows it.
    bool plain() const { return kind.features == Features{}; }
};

/// Where a material stands in a table. 0 is the plain one.
struct SurfaceId {
    std::uint32_t row = 0;
    std::uint16_t kind = 0;
};

/// What a material has to know of the mesh that it covers.
struct MeshPlace {
    Box box;                      ///< of the mesh, in its own coordinates
    std::uint32_t parameters = 0; ///< added to a vertex's number: its place in the parameter buffer
    bool hasParameters = false;   ///< any vertex has some
    bool complete = false;        ///< every vertex has
};

/// The materials of a draw list, each one once. Row 0 is the plain one.
class MaterialTable
{
public:
    MaterialTable() { clear(); }

    void clear();

    /// The entry that equals `material`, a new one if there is none. The plain one once the table is full.
    SurfaceId intern(SurfaceMaterial const& material);

    /// Rows that follow each other, as they do in a palette. Gives the first one.
    std::uint32_t internPalette(std::vector<MaterialRow> const& rows);

    std::vector<MaterialRow> const& rows() const { return rows_; }
    std::vector<LayerRow> const& layers() const { return layers_; }
    SurfaceKind const& kind(std::uint16_t number) const { return kinds_[number]; }

    /// Differs whenever rows or layers do, from those of every other table too.
    std::uint64_t version() const { return version_; }

private:
    std::uint32_t rowOf(MaterialRow const& row);
    std::uint32_t layersOf(std::vector<LayerRow> const& layers);
    std::uint16_t kindOf(SurfaceKind const& kind);

    std::vector<MaterialRow> rows_;
    std::vector<LayerRow> layers_;
    std::vector<SurfaceKind> kinds_;
    std::unordered_multimap<std::size_t, std::uint32_t> rowsByHash_;
    std::unordered_map<std::string, std::uint32_t> runsOfLayers_; ///< by their bytes
    std::unordered_map<std::string, std::uint32_t> palettes_;     ///< the same
    std::uint64_t version_ = 0;
};

/// `material` as it covers one mesh.
SurfaceMaterial placed(SurfaceMaterial material, MeshPlace const& mesh);

} // namespace HPS::render
