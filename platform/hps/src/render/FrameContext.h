#pragma once
#include "DrawList.h"
#include "Scene.h"
#include "Target.h"
#include "Viewing.h"

namespace HPS::render
{

struct FrameCounts {
    std::uint64_t triangles = 0;
    std::uint64_t lineSegments = 0;
    std::uint64_t markers = 0;
    std::uint32_t records = 0;           ///< drawn
    std::uint32_t culledRecords = 0;     ///< found outside the window
    std::uint32_t calls = 0;             ///< draw calls to the driver
    std::uint32_t uploadedInstances = 0; ///< none as long as only the camera changes

    void add(FrameCounts const& other)
    {
        triangles += other.triangles;
        lineSegments += other.lineSegments;
        markers += other.markers;
        records += other.records;
        culledRecords += other.culledRecords;
        calls += other.calls;
        uploadedInstances += other.uploadedInstances;
    }
};

/// What the steps of a frame share. Lives for one frame.
struct FrameContext {
    Target const& target;
    DrawList const& list;
    Scene const& scene;
    Viewing const& viewing;
    bool eyeOutside;         ///< the eye stands in no closed body
    unsigned instanceBuffer; ///< on the device, in the order of the list's records
    FrameCounts& counts;
    unsigned frameBlock = 0; ///< the uniform buffer of the viewer's own view
    bool shadowed = false;   ///< there is a shadow mask
};

} // namespace HPS::render
