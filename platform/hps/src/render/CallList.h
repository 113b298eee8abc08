#pragma once
#include "Buffer.h"
#include "FrameContext.h"
#include "ShaderLibrary.h"
#include <optional>

namespace HPS::render
{

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

    /// Draws it all, in the order of pushing, with the state that the pipelines stand for. A `program` given
    /// takes the place of theirs.
    void submit(FrameContext const& context, std::optional<ProgramName> program = {});

private:
    struct Command {
        std::uint32_t indexCount, instanceCount, firstIndex, baseVertex, baseInstance;
    };
    struct Batch {
        Pipeline pipeline;
        std::size_t firstCommand, commandCount;
        unsigned instances; ///< buffer that the commands' instances come from
    };
    void submit(Batch const& batch, FrameContext const& context, std::optional<ProgramName> program) const;

    std::vector<Command> commands_;
    std::vector<Batch> batches_;
    Buffer buffer_;
};

} // namespace HPS::render
