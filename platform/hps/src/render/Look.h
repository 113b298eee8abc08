#pragma once
#include "DrawList.h"
#include "MeshBuilder.h"
#include <hps/CullingKit.h>
#include <hps/Definition.h>
#include <hps/DrawingAttributeKit.h>
#include <hps/EdgeAttributeKit.h>
#include <hps/LineAttributeKit.h>
#include <hps/MarkerAttributeKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/VisibilityKit.h>

namespace HPS::render
{

/// How the contents of a segment are drawn on one path: net attributes, worked out to what the device takes.
struct Look {
    struct Stroke {
        std::uint8_t colour[4] = {0, 0, 0, 255};
        float size = 1;
        std::uint32_t flags = 0;
        bool transparent() const { return colour[3] < 255; }
    };
    bool facesShown = false, linesShown = false, markersShown = false, verticesShown = false;
    bool plainFaces = false; ///< the shells' own colours give way
    bool cullBack = false;
    std::int16_t displacement = 0;
    EdgeChoice edges;
    Stroke face, edge, line, marker, vertex;

    bool anything() const { return facesShown || linesShown || markersShown || verticesShown || edges.any(); }
};

/// The net attributes that a look is made of; what is not set takes its default.
struct LookSources {
    VisibilityData const& visibility;
    MaterialMappingData const& materials;
    LineAttributeData const& lines;
    EdgeAttributeData const& edges;
    MarkerAttributeData const& markers;
    DrawingAttributeData const& drawing;
    CullingData const& culling;
    MaterialKitArray const* palette; ///< that material indices count in; null if there is none
};

Look lookOf(LookSources const& sources);

} // namespace HPS::render
