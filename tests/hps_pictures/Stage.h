#pragma once
#include <QImage>
#include <hps/Factory.h>
#include <hps/KeyPath.h>
#include <hps/SprocketPath.h>
#include <hps/WindowKey.h>
#include <hps/hps.h>
#include <string>
#include <string_view>
#include <vector>

/// A canvas without a window, a view and an empty model, for scenes made through the public interface.
///
/// Starts with 200x150 pixels, an orthographic camera that looks down the z axis on a field of 4 by 3 around
/// the origin, a dark background of one colour, no edges and no light.
class Stage
{
public:
    explicit Stage(int width = 200, int height = 150);
    ~Stage();
    Stage(Stage const&) = delete;
    Stage& operator=(Stage const&) = delete;

    HPS::Canvas canvas;
    HPS::View view;
    HPS::Model model;

    HPS::SegmentKey root() const { return model.GetSegmentKey(); }
    HPS::SegmentKey viewSegment() const { return view.GetSegmentKey(); }
    HPS::WindowKey window() const { return canvas.GetWindowKey(); }
    /// From the window to a segment of the model.
    HPS::KeyPath path(HPS::SegmentKey const& to) const;

    /// Looks at the origin from `position`, `height` units of the world high.
    void look(HPS::Point const& position, float height = 3, bool perspective = false);
    /// A white light from over the viewer's left shoulder.
    void light();
    void background(HPS::RGBAColor const& top, HPS::RGBAColor const& bottom);

    /// Brings the canvas up to date and reads it. Adds a failure to the running test if that does not work.
    QImage picture(HPS::Window::UpdateType type = HPS::Window::UpdateType::Default);
    HPS::UpdateReport report() const;

    /// Words of the case's second column, split at blanks.
    std::vector<std::string> arguments;
    bool has(std::string_view word) const;
    /// What stands behind `name=`; empty if it is not there.
    std::string value(std::string_view name) const;
};

// Shapes to put into a segment.
HPS::ShellKey insertRectangle(HPS::SegmentKey segment, HPS::Point const& centre, float width, float height);
/// Faces run counter-clockwise seen from outside; without normals, so that every face is flat.
HPS::ShellKey insertBox(HPS::SegmentKey segment, HPS::Point const& low, HPS::Point const& high);
/// A ball with normals.
HPS::ShellKey insertBall(HPS::SegmentKey segment, HPS::Point const& centre, float radius, int steps = 24);

/// A scene that cases.txt can name. Every scenes_<theme>.cpp keeps one of these tables as a static object.
struct NamedScene {
    std::string_view name;
    void (*build)(Stage& stage);
};
class SceneTable
{
public:
    SceneTable(std::initializer_list<NamedScene> scenes);
    static NamedScene const* find(std::string_view name);
};
