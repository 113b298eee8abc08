#pragma once
#include "DrawList.h"
#include "MeshStore.h"
#include "Target.h"

namespace HPS::render
{

struct FrameCounts {
    std::uint64_t triangles = 0;
    std::uint64_t lineSegments = 0;
    std::uint64_t markers = 0;
    std::uint32_t records = 0;       ///< drawn
    std::uint32_t culledRecords = 0; ///< found outside the window
    std::uint32_t calls = 0;         ///< draw calls to the driver
    bool uploadedInstances = false;  ///< false as long as only the camera changes
};

/// Draws draw lists into targets; one per canvas. Keeps the instances of the last list on the device, so that
/// a frame that differs by the camera alone uploads no more than its list of visible records.
class Frame
{
public:
    Frame() = default;
    ~Frame();
    Frame(Frame const&) = delete;
    Frame& operator=(Frame const&) = delete;

    /// Needs the device's context to be current. What the target holds stays below the new picture unless the
    /// scene has a background. The picture is complete once the target is resolved.
    FrameCounts draw(Target const& target, DrawList const& list, Scene const& scene);

private:
    struct Command {
        std::uint32_t indexCount, instanceCount, firstIndex, baseVertex, baseInstance;
    };
    struct Batch {
        Pipeline pipeline;
        std::size_t firstCommand, commandCount;
        unsigned instances; ///< buffer that the commands' instances come from
    };

    struct Visible {
        double depth; ///< of the box's middle, larger towards the viewer
        std::uint32_t record;
    };

    void paintBackground() const;
    void upload(DrawList const& list);
    void choose(DrawList const& list, class Viewing const& viewing, FaceStyle style, FrameCounts& counts);
    void chooseOpaque(DrawList const& list);
    void chooseTransparent(DrawList const& list);
    void push(Pipeline const& pipeline, unsigned instances, MeshRange const& range, std::uint32_t instance);
    void submit(Batch const& batch, Scene const& scene) const;

    unsigned instanceBuffer_ = 0, sortedBuffer_ = 0, commandBuffer_ = 0, frameBuffer_ = 0;
    bool outside_ = true;        ///< the eye stands in no closed body
    std::uint64_t uploaded_ = 0; ///< version of the list in `instanceBuffer_`
    std::vector<Command> commands_;
    std::vector<Batch> batches_;
    std::vector<Visible> opaque_, transparent_; ///< of this frame
    std::vector<Instance> sorted_;              ///< their instances, from back to front
};

} // namespace HPS::render
