#include "warm_up.h"
#include "Device.h"
#include "Frame.h"
#include "MeshStore.h"
#include "of_context.h"
#include <array>

namespace HPS::render
{
namespace
{

constexpr std::int16_t Displacement = 16; // what bodies have that show edges

Instance plain()
{
    Instance instance{};
    instance.colour[3] = 255;
    instance.size = 1;
    return instance;
}

std::unique_ptr<Target>& spareTarget()
{
    struct Spare {
        std::unique_ptr<Target> target;
    };
    return ofContext<Spare>().target;
}

// The driver compiles for each set of states, so the states have to be those of real pictures.
void drawInto(Target const& target)
{
    std::array<FaceVertex, 3> corners{};
    corners[1].position[0] = corners[2].position[1] = 1;
    for (FaceVertex& corner : corners) corner.normal[2] = 32767;
    std::array<std::uint32_t, 3> const triangle{0, 1, 2};
    std::array const segments{LineSegment{{0, 0, 0}, {1, 1, 0}}};
    Mesh const faces = MeshStore::instance().addFaces(corners, triangle);
    Mesh const lines = MeshStore::instance().addLines(segments);

    DrawList list;
    Pipeline body;
    body.closed = true;
    body.displacement = Displacement;
    Pipeline edges;
    edges.primitive = Primitive::ThinLines;
    list.add(body, faces.range(), faces.box(), identity, plain());
    list.add(edges, lines.range(), lines.box(), identity, plain());
    list.finish();
    Scene scene;
    scene.lights.distant.resize(1);
    Frame().draw(target, list, scene);
    target.resolve();
    std::vector<std::uint8_t> pixels;
    target.read(pixels);
}

} // namespace

bool warmUp(int width, int height, int samples)
{
    Device& device = Device::instance();
    if (!device.makeCurrent()) return false;
    auto target = std::make_unique<Target>();
    target->resize(width, height, samples);
    drawInto(*target);
    spareTarget() = std::move(target);
    device.release();
    return true;
}

std::unique_ptr<Target> firstTarget()
{
    return spareTarget() ? std::move(spareTarget()) : std::make_unique<Target>();
}

} // namespace HPS::render
