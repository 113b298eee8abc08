// A small window to pick in: 200 by 200 pixels, ten to a unit of the world, the origin in its middle.
#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <hps/Factory.h>
#include <hps/Layout.h>
#include <hps/SelectionControl.h>
#include <hps/SprocketPath.h>
#include <hps/WindowKey.h>
#include <hps/hps.h>

namespace HPS
{

class Stage : public testing::Test
{
protected:
    static constexpr int pixels = 200;

    Stage()
    {
        canvas.AttachViewAsLayout(view);
        view.AttachModel(model);
        look({0, 0, 50}, Camera::Projection::Orthographic);
    }
    ~Stage() override
    {
        canvas.Delete();
        view.Delete();
        model.Delete();
    }

    void look(Point const& from, Camera::Projection projection)
    {
        CameraKit camera;
        camera.SetPosition(from).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(20, 20);
        camera.SetProjection(projection);
        view.SetCamera(camera);
    }
    static ShellKey addSquare(SegmentKey segment, Point const& centre, float half = 1)
    {
        auto const [x, y, z] = centre;
        return segment.InsertShell({{x - half, y - half, z},
                                    {x + half, y - half, z},
                                    {x + half, y + half, z},
                                    {x - half, y + half, z}},
                                   {4, 0, 1, 2, 3});
    }

    /// What everything in reach gives, in no order.
    static SelectionOptionsKit everything()
    {
        SelectionOptionsKit options;
        options.SetLevel(Selection::Level::Entity)
            .SetRelatedLimit(2147483647)
            .SetSorting(Selection::Sorting::Off);
        return options.SetProximity(0);
    }
    static SelectionOptionsKit nearestFirst()
    {
        return everything().SetSorting(Selection::Sorting::ZSorting);
    }

    SelectionResults atPoint(float x, float y, SelectionOptionsKit const& options) const
    {
        SelectionResults results;
        control().SelectByPoint({x / 10, y / 10, 0}, options, results);
        return results;
    }
    /// A square of pixels around a place.
    SelectionResults around(float x, float y, float halfPixels, SelectionOptionsKit const& options) const
    {
        SelectionResults results;
        float const half = halfPixels / (pixels / 2);
        control().SelectByArea({x / 10 - half, x / 10 + half, y / 10 - half, y / 10 + half}, options,
                               results);
        return results;
    }
    SelectionControl control() const { return canvas.GetWindowKey().GetSelectionControl(); }

    static KeyArray keysOf(SelectionResults const& results)
    {
        KeyArray keys;
        for (auto at = results.GetIterator(); at.IsValid(); at.Next())
            if (Key key; at.GetItem().ShowSelectedItem(key)) keys.push_back(key);
        return keys;
    }
    static KeyPath pathOf(SelectionResults const& results)
    {
        KeyPath path;
        results.GetIterator().GetItem().ShowPath(path);
        return path;
    }
    static Point positionOf(SelectionResults const& results)
    {
        Point position;
        results.GetIterator().GetItem().ShowSelectionPosition(position);
        return position;
    }

    Canvas canvas = Factory::CreateOffScreenCanvas(pixels, pixels);
    View view = Factory::CreateView("the view");
    Model model = Factory::CreateModel("the model");
    SegmentKey root = model.GetSegmentKey();
};

inline void PrintTo(Point const& p, std::ostream* out)
{
    *out << '(' << p.x << ", " << p.y << ", " << p.z << ')';
}
inline void PrintTo(SelectionParts const& parts, std::ostream* out)
{
    for (auto const face : parts.faces) *out << "face " << face << ' ';
    for (auto const& edge : parts.edges) *out << "edge " << edge[0] << '-' << edge[1] << ' ';
    for (auto const vertex : parts.vertices) *out << "vertex " << vertex << ' ';
}
inline void PrintTo(Key const& key, std::ostream* out)
{
    *out << "key " << key.Index().slot;
}

} // namespace HPS
