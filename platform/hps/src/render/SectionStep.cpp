#include "SectionStep.h"
#include "bindings.h"
#include <algorithm>
#include <array>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

using Row = std::array<float, 4>;

/// As sections_fragment.glsl has it. Planes count from the camera's target, where numbers are small.
std::vector<Row> sectionBlock(Sections const& sections, Vec3 const& target, int samples)
{
    constexpr int most = 16;
    std::vector<Row> rows(most);
    for (int i = 0; i < most && i < samples; ++i) {
        float place[2] = {0.5f, 0.5f};
        if (samples > 1) glGetMultisamplefv(GL_SAMPLE_POSITION, GLuint(i), place);
        rows[std::size_t(i)] = {place[0] - 0.5f, place[1] - 0.5f, 0, float(std::min(samples, most))};
    }
    std::size_t const first = rows.size();
    rows.resize(first + sections.sets.size());
    for (std::size_t s = 0; s < sections.sets.size(); ++s) {
        rows[first + s] = {float(rows.size() - first), float(sections.sets[s].size()), 0, 0};
        for (std::uint32_t number : sections.sets[s]) {
            CutSection const& section = sections.sections[number];
            rows.push_back({float(section.size()), 0, 0, 0});
            for (CutPlane const& plane : section)
                rows.push_back({float(plane.normal.x), float(plane.normal.y), float(plane.normal.z),
                                float(plane.at(target))});
        }
    }
    return rows;
}

} // namespace

void SectionStep::prepare(FrameContext const& context)
{
    if (!context.scene.sections.any()) return;
    context.target.bind(); // whose samples count
    std::vector<Row> const rows =
        sectionBlock(context.scene.sections, context.viewing.target, context.target.samples());
    planes_.fill(std::span<Row const>(rows));
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, SectionBinding, planes_.name());
}

void SectionStep::draw(FrameContext const& context)
{
    DrawList const* const caps = context.scene.sections.caps;
    if (caps == nullptr || caps->records.empty()) return;
    buffers_.upload(*caps);
    buffers_.bindMaterials();
    FrameContext const own{
        context.target,       *caps,         context.scene, context.viewing, context.eyeOutside,
        buffers_.instances(), context.counts};
    visible_.choose(own);
    calls_.clear();
    auto push = [&](std::uint32_t first, std::uint32_t count) {
        Record const& record = caps->records[first];
        calls_.push(record.pipeline, buffers_.instances(), record.range, first, count);
    };
    for (RecordRun const& run : visible_.opaque()) push(run.first, run.count);
    for (VisibleRecords::Entry const& entry : visible_.transparent()) push(entry.record, 1);
    calls_.submit(own);
}

} // namespace HPS::render
