// Small meshes, and the pictures that draw lists of them give.
#pragma once
#include "Device.h"
#include "Frame.h"
#include "image.h"
#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace HPS::render
{

inline Mesh square()
{
    std::array<FaceVertex, 4> v{};
    for (int i = 0; i < 4; ++i) {
        v[std::size_t(i)].position[0] = (i & 1) != 0 ? 1.0f : -1.0f;
        v[std::size_t(i)].position[1] = (i & 2) != 0 ? 1.0f : -1.0f;
    }
    std::array<std::uint32_t, 6> const indices{0, 1, 2, 2, 1, 3};
    return MeshStore::instance().addFaces(v, indices);
}

/// A corner of a cube cut off, with outward winding; `mirror` is -1 for the shape seen in a mirror at x = 0.
inline Mesh wedge(float mirror = 1)
{
    std::vector<FaceVertex> v(4);
    float const corners[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1.2f, 0}, {0, 0, 0.8f}};
    for (int i = 0; i < 4; ++i)
        for (int k = 0; k < 3; ++k) v[std::size_t(i)].position[k] = corners[i][k] * (k == 0 ? mirror : 1);
    std::vector<std::uint32_t> indices{0, 2, 1, 0, 1, 3, 0, 3, 2, 1, 2, 3};
    if (mirror < 0)
        for (std::size_t t = 0; t < indices.size(); t += 3) std::swap(indices[t + 1], indices[t + 2]);
    return MeshStore::instance().addFaces(v, indices);
}

inline Mat4 placed(double x, double y, double z, double scale = 1)
{
    return {scale, 0, 0, 0, 0, scale, 0, 0, 0, 0, scale, 0, x, y, z, 1};
}

inline Instance coloured(Pixel const& c)
{
    Instance instance{};
    instance.colour[0] = std::uint8_t(c.red);
    instance.colour[1] = std::uint8_t(c.green);
    instance.colour[2] = std::uint8_t(c.blue);
    instance.colour[3] = std::uint8_t(c.alpha);
    return instance;
}

inline Pixel const red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, black{0, 0, 0};

/// Draws into a target of its own. The scene looks down the z axis on x and y from -2 to 2 unless changed.
class Pictures : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Device::instance().makeCurrent()) << Device::instance().failure();
        scene.camera.position = {0, 0, 10};
        scene.camera.fieldWidth = scene.camera.fieldHeight = 4;
    }

    void add(Mesh const& mesh, Mat4 const& matrix, Instance const& instance, Pipeline pipeline = {})
    {
        pipeline.transparent = instance.colour[3] < 255;
        list.add(pipeline, mesh.range(), mesh.box(), matrix, instance);
    }

    Image picture(int width = 80, int height = 80, int samples = 4)
    {
        list.finish();
        target.resize(width, height, samples);
        counts = frame.draw(target, list, scene);
        target.resolve();
        Image image{width, height, {}};
        target.read(image.bytes);
        return image;
    }

    DrawList list;
    Scene scene;
    Target target;
    Frame frame;
    FrameCounts counts;
};

} // namespace HPS::render
