#include "warm_up.h"
#include "Device.h"
#include "Frame.h"
#include <array>

namespace HPS::render
{
namespace
{

constexpr int Size = 16; // pixels
constexpr int Samples = 4;
constexpr std::int16_t Displacement = 16; // what bodies have that show edges

Instance plain()
{
    Instance instance{};
    instance.colour[3] = 255;
    instance.size = 1;
    return instance;
}

// The driver compiles for each set of states, so the states have to be those of real pictures.
void drawTiny()
{
    std::array<FaceVertex, 3> corners{};
    corners[1].position[0] = corners[2].position[1] = 1;
    for (FaceVertex& corner : corners) corner.normal[2] = 32767;
    std::array<std::uint32_t, 3> const triangle{0, 1, 2};
    std::array const segments{LineSegment{{0, 0, 0}, {1, 1, 0}}};
    Mesh const faces = MeshStore::instance().addFaces(corners, triangle);
    Mesh const lines = MeshStore::instance().addLines(segments);

    DrawList list;
    list.add({false, Primitive::Faces, false, false, Displacement}, faces.range(), faces.box(), identity,
             plain());
    list.add({false, Primitive::ThinLines, false, false, 0}, lines.range(), lines.box(), identity, plain());
    list.finish();
    Scene scene;
    scene.lights.resize(1);
    Target target;
    target.resize(Size, Size, std::min(Samples, Device::instance().maximumSamples()));
    Frame().draw(target, list, scene);
    target.resolve();
    std::vector<std::uint8_t> pixels;
    target.read(pixels);
}

} // namespace

bool warmUp()
{
    Device& device = Device::instance();
    if (!device.makeCurrent()) return false;
    drawTiny();
    device.release();
    return true;
}

} // namespace HPS::render
