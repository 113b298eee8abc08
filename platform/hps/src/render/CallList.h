#pragma once
#include "Buffer.h"
#include "FrameContext.h"
#include "ShaderLibrary.h"
#include <array>
#include <functional>
#include <optional>

namespace HPS::render
{

/// What a step wants otherwise than the pipelines say.
struct Pass {
    std::optional<ProgramName> program = {}; ///< in place of the pipelines' own
    Features features = {};                  ///< added to the programs' own
    bool keepBlending = false; ///< blending and what is written to depths stay as the step has set them
    bool mirrored = false;     ///< the viewing is left-handed
    /// Factor and steps of depth, in place of the pipelines'.
    std::optional<std::array<float, 2>> displacement = {};
    unsigned indices = 0;               ///< buffer that faces' indices come from, in place of the meshes' own
    std::function<void()> prepare = {}; ///< called with each program current
};

/// The draw calls of one step: showings of mesh ranges, gathered into one indirect call for each run of equal
/// pipelines. Memory is kept from frame to frame.
class CallList
{
public:
    void clear();
    bool empty() const { return commands_.empty(); }

    /// `instance` is the first of `count` in `instances`, a buffer of `Instance`s on the device.
    void push(Pipeline const& pipeline, unsigned instances, MeshRange const& range, std::uint32_t instance,
              std::uint32_t count = 1);

    /// Draws it all, in the order of pushing, with the state that the pipelines stand for.
    void submit(FrameContext const& context, Pass const& pass = {});

private:
    struct Command {
        std::uint32_t indexCount, instanceCount, firstIndex, baseVertex, baseInstance;
    };
    struct Batch {
        Pipeline pipeline;
        std::size_t firstCommand, commandCount;
        unsigned instances; ///< buffer that the commands' instances come from
    };
    void submit(Batch const& batch, FrameContext const& context, Pass const& pass) const;

    std::vector<Command> commands_;
    std::vector<Batch> batches_;
    Buffer buffer_;
};

} // namespace HPS::render
