// Small meshes, and the pictures that draw lists of them give.
#pragma once
#include "Device.h"
#include "Frame.h"
#include "MeshBuilder.h"
#include "image.h"
#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace HPS::render
{

inline ShellData shellOf(std::vector<Point> points, std::vector<int> facelist)
{
    ShellData shell;
    shell.points = std::move(points);
    shell.facelist = std::move(facelist);
    return shell;
}

inline ShellData squareShell()
{
    return shellOf({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}, {4, 0, 1, 2, 3});
}

/// A corner of a cube cut off; `mirror` is -1 for the shape seen in a mirror at x = 0. The faces run
/// counter-clockwise seen from outside.
inline ShellData wedgeShell(float mirror = 1)
{
    ShellData shell = shellOf({{0, 0, 0}, {mirror, 0, 0}, {0, 1.2f, 0}, {0, 0, 0.8f}},
                              {3, 0, 2, 1, 3, 0, 1, 3, 3, 0, 3, 2, 3, 1, 2, 3});
    if (mirror < 0)
        for (std::size_t at = 0; at < shell.facelist.size(); at += 4)
            std::swap(shell.facelist[at + 2], shell.facelist[at + 3]);
    return shell;
}

inline Mesh meshOf(ShellData const& shell)
{
    MeshBuilder builder;
    builder.addShellFaces(shell, false);
    return builder.uploadFaces();
}

inline Mesh square()
{
    return meshOf(squareShell());
}
inline Mesh wedge(float mirror = 1)
{
    return meshOf(wedgeShell(mirror));
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
