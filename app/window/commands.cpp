#include "commands.h"

#include <algorithm>
#include <array>

namespace zelview
{
namespace
{

using enum Command;

/// A cube from outside and from within; the standard views fill one of its sides.
constexpr char const* Cube = "M 8 2 L 14 5 L 14 11 L 8 14 L 2 11 L 2 5 Z M 2 5 L 8 8 L 14 5 M 8 8 L 8 14";
constexpr char const* Hexagon = "M 8 2 L 14 5 L 14 11 L 8 14 L 2 11 L 2 5 Z";

constexpr CommandRow Table[] = {
    {.command = Open,
     .menu = Menu::File,
     .text = "&Open…",
     .keys = "Ctrl+O",
     .drawing = "M 2 13 L 2 3 L 6 3 L 8 5 L 13 5 L 13 7 M 2 13 L 4.5 7 L 15 7 L 12.5 13 F",
     .onToolBar = true},
    {.command = Add, .menu = Menu::File, .text = "Open in new &tab…", .keys = "Ctrl+T"},
    {.command = Reload, .menu = Menu::File, .text = "&Reload", .keys = "F5 Ctrl+R", .needsDocument = true},
    {.command = SavePicture,
     .menu = Menu::File,
     .text = "Save &picture",
     .keys = "F12",
     .drawing = "M 2 5 L 5 5 L 6 3 L 10 3 L 11 5 L 14 5 L 14 13 L 2 13 Z C 8 9 2.5",
     .needsDocument = true,
     .onToolBar = true,
     .separated = true},
    {.command = SaveAs,
     .menu = Menu::File,
     .text = "Save &as…",
     .keys = "Ctrl+Shift+S",
     .needsDocument = true},
    {.command = CloseTab,
     .menu = Menu::File,
     .text = "&Close tab",
     .keys = "Ctrl+W",
     .needsDocument = true,
     .separated = true},
    {.command = Quit, .menu = Menu::File, .text = "&Quit", .keys = "Ctrl+Q"},

    {.command = Find, .menu = Menu::Edit, .text = "&Find in tree", .keys = "Ctrl+F", .needsDocument = true},
    {.command = SelectNone,
     .menu = Menu::Edit,
     .text = "Select &nothing",
     .keys = "Escape",
     .needsDocument = true},
    {.command = SelectParent,
     .menu = Menu::Edit,
     .text = "Select &parent",
     .keys = "P",
     .needsDocument = true},
    {.command = Preferences,
     .menu = Menu::Edit,
     .text = "P&references…",
     .keys = "Ctrl+,",
     .separated = true},

    {.command = ViewIsometric,
     .menu = Menu::View,
     .text = "&Isometric",
     .keys = "0",
     .drawing = Cube,
     .needsDocument = true,
     .onToolBar = true},
    {.command = ViewFront,
     .menu = Menu::View,
     .text = "&Front",
     .keys = "1",
     .drawing = Cube,
     .side = "M 2 5 L 8 8 L 8 14 L 2 11 F",
     .needsDocument = true,
     .onToolBar = true},
    {.command = ViewTop,
     .menu = Menu::View,
     .text = "&Top",
     .keys = "2",
     .drawing = Cube,
     .side = "M 2 5 L 8 8 L 14 5 L 8 2 F",
     .needsDocument = true,
     .onToolBar = true},
    {.command = ViewRight,
     .menu = Menu::View,
     .text = "&Right",
     .keys = "3",
     .drawing = Cube,
     .side = "M 14 5 L 8 8 L 8 14 L 14 11 F",
     .needsDocument = true,
     .onToolBar = true},
    {.command = ViewBack,
     .menu = Menu::View,
     .text = "&Back",
     .keys = "4",
     .drawing = Hexagon,
     .side = "M 8 2 L 14 5 L 14 11 L 8 8 F",
     .needsDocument = true,
     .onToolBar = true},
    {.command = ViewBottom,
     .menu = Menu::View,
     .text = "B&ottom",
     .keys = "5",
     .drawing = Hexagon,
     .side = "M 2 11 L 8 8 L 14 11 L 8 14 F",
     .needsDocument = true,
     .onToolBar = true},
    {.command = ViewLeft,
     .menu = Menu::View,
     .text = "&Left",
     .keys = "6",
     .drawing = Hexagon,
     .side = "M 8 2 L 2 5 L 2 11 L 8 8 F",
     .needsDocument = true,
     .onToolBar = true},
    {.command = Fit,
     .menu = Menu::View,
     .text = "Fit &all",
     .keys = "F",
     .drawing = "M 2 5 L 2 2 L 5 2 M 11 2 L 14 2 L 14 5 M 14 11 L 14 14 L 11 14 M 5 14 L 2 14 L 2 11 "
                "M 5 5 L 11 5 L 11 11 L 5 11 F",
     .needsDocument = true,
     .onToolBar = true,
     .separated = true},
    {.command = ZoomSelection,
     .menu = Menu::View,
     .text = "&Zoom to selection",
     .keys = "Z",
     .drawing = "C 7 7 4 M 10 10 L 14 14 M 5 7 L 9 7 M 7 5 L 7 9",
     .needsDocument = true,
     .onToolBar = true},
    {.command = Projection,
     .menu = Menu::View,
     .text = "&Parallel projection",
     .keys = "O",
     .drawing = "M 2 4 L 14 4 M 2 12 L 14 12 M 5 4 L 5 12 M 11 4 L 11 12",
     .needsDocument = true,
     .onToolBar = true,
     .check = Check::Projection},
    {.command = ModeGouraud,
     .menu = Menu::View,
     .text = "&Shaded",
     .drawing = "C 8 8 5.5 M 8 2.5 L 8 13.5 L 5 12.5 L 3 10 L 2.5 8 L 3 6 L 5 3.5 F",
     .needsDocument = true,
     .onToolBar = true,
     .check = Check::Mode,
     .separated = true,
     .viewSlot = "OnModeGouraud"},
    {.command = ModeFlat,
     .menu = Menu::View,
     .text = "Shaded, flat fa&cets",
     .needsDocument = true,
     .check = Check::Mode,
     .viewSlot = "OnModeFlat"},
    {.command = ModeSmooth,
     .menu = Menu::View,
     .text = "Shaded, s&mooth",
     .needsDocument = true,
     .check = Check::Mode,
     .viewSlot = "OnModeSmooth"},
    {.command = ModeTransparent,
     .menu = Menu::View,
     .text = "Transpar&ent",
     .drawing = "C 8 8 5.5 C 8 8 2.5",
     .needsDocument = true,
     .onToolBar = true,
     .check = Check::Mode,
     .viewSlot = "OnModeTransparent"},
    {.command = ModeWires,
     .menu = Menu::View,
     .text = "&Wires",
     .drawing = "C 8 8 5.5 M 2.5 8 L 13.5 8 M 8 2.5 L 8 13.5",
     .needsDocument = true,
     .onToolBar = true,
     .check = Check::Mode,
     .viewSlot = "OnModeWires"},
    {.command = ModeHiddenLine,
     .menu = Menu::View,
     .text = "&Hidden lines removed",
     .drawing = "C 8 8 5.5",
     .needsDocument = true,
     .onToolBar = true,
     .check = Check::Mode,
     .viewSlot = "OnModeHiddenLine"},
    {.command = ShowFaces,
     .menu = Menu::View,
     .text = "Faces",
     .needsDocument = true,
     .check = Check::Option,
     .separated = true},
    {.command = ShowEdges,
     .menu = Menu::View,
     .text = "Edges",
     .needsDocument = true,
     .check = Check::Option},
    {.command = ShowVertices,
     .menu = Menu::View,
     .text = "Vertices",
     .needsDocument = true,
     .check = Check::Option},
    {.command = ShowTessellation,
     .menu = Menu::View,
     .text = "Triangles of the tessellation",
     .needsDocument = true,
     .check = Check::Option},
    {.command = ShowAnnotations,
     .menu = Menu::View,
     .text = "Annotations",
     .needsDocument = true,
     .check = Check::Option},
    {.command = ShowAxes, .menu = Menu::View, .text = "Axes", .needsDocument = true, .check = Check::Option},
    {.command = ShowCube,
     .menu = Menu::View,
     .text = "Navigation cube",
     .needsDocument = true,
     .check = Check::Option},
    {.command = FullScreen,
     .menu = Menu::View,
     .text = "F&ull screen",
     .keys = "F11",
     .check = Check::Toggle,
     .separated = true},

    {.command = PickRay,
     .menu = Menu::Tools,
     .text = "&Pick rays",
     .needsDocument = true,
     .check = Check::Toggle},
    {.command = CutX,
     .menu = Menu::Tools,
     .text = "Cut across &X",
     .drawing = "M 2 3 L 14 3 L 14 13 L 2 13 Z M 7 1 L 9 1 L 9 15 L 7 15 F",
     .needsDocument = true,
     .onToolBar = true,
     .check = Check::Cut,
     .separated = true,
     .viewSlot = "OnOperatorCuttingPlaneX"},
    {.command = CutY,
     .menu = Menu::Tools,
     .text = "Cut across &Y",
     .drawing = "M 2 3 L 14 3 L 14 13 L 2 13 Z M 3 15 L 11 1 L 13 1 L 5 15 F",
     .needsDocument = true,
     .onToolBar = true,
     .check = Check::Cut,
     .viewSlot = "OnOperatorCuttingPlaneY"},
    {.command = CutZ,
     .menu = Menu::Tools,
     .text = "Cut across &Z",
     .drawing = "M 3 2 L 13 2 L 13 14 L 3 14 Z M 1 7 L 15 7 L 15 9 L 1 9 F",
     .needsDocument = true,
     .onToolBar = true,
     .check = Check::Cut,
     .viewSlot = "OnOperatorCuttingPlaneZ"},
    {.command = CutCaps,
     .menu = Menu::Tools,
     .text = "&Close cuts on or off",
     .needsDocument = true,
     .viewSlot = "OnModeCutCaps"},
    {.command = SimpleShadow,
     .menu = Menu::Tools,
     .text = "&Ground shadow on or off",
     .needsDocument = true,
     .separated = true,
     .viewSlot = "OnModeSimpleShadow"},
    {.command = ShadowMap,
     .menu = Menu::Tools,
     .text = "&Shadows on or off",
     .needsDocument = true,
     .viewSlot = "OnModeShadowMap"},
    {.command = ReflectionPlane,
     .menu = Menu::Tools,
     .text = "&Mirror on or off",
     .needsDocument = true,
     .viewSlot = "OnModeReflectionPlane"},
    {.command = Bloom,
     .menu = Menu::Tools,
     .text = "&Bloom on or off",
     .needsDocument = true,
     .viewSlot = "OnModeBloom"},

    {.command = NextTab,
     .menu = Menu::Window,
     .text = "&Next tab",
     .keys = "Ctrl+PgDown",
     .needsDocument = true},
    {.command = PreviousTab,
     .menu = Menu::Window,
     .text = "&Previous tab",
     .keys = "Ctrl+PgUp",
     .needsDocument = true},

    {.command = Keys, .menu = Menu::Help, .text = "&Keys", .keys = "H F1"},
    {.command = About, .menu = Menu::Help, .text = "&About zelview"},
};

constexpr std::array ViewCommands{ViewIsometric, ViewFront,  ViewTop, ViewRight,
                                  ViewBack,      ViewBottom, ViewLeft};

} // namespace

std::span<CommandRow const> commandTable()
{
    return Table;
}

CommandRow const& rowOf(Command command)
{
    return *std::ranges::find(Table, command, &CommandRow::command);
}

char const* titleOf(Menu menu)
{
    switch (menu) {
    case Menu::File:
        return "&File";
    case Menu::Edit:
        return "&Edit";
    case Menu::View:
        return "&View";
    case Menu::Tools:
        return "&Tools";
    case Menu::Window:
        return "&Window";
    case Menu::Help:
        return "&Help";
    }
    return "";
}

std::optional<StandardView> standardViewOf(Command command)
{
    auto const found = std::ranges::find(ViewCommands, command);
    if (found == ViewCommands.end()) return std::nullopt;
    return StandardViewNames[found - ViewCommands.begin()].value;
}

Command commandOf(ShadingMode mode)
{
    switch (mode) {
    case ShadingMode::Gouraud:
        return ModeGouraud;
    case ShadingMode::Flat:
        return ModeFlat;
    case ShadingMode::Smooth:
        return ModeSmooth;
    case ShadingMode::Wires:
        return ModeWires;
    case ShadingMode::HiddenLine:
        return ModeHiddenLine;
    }
    return ModeGouraud;
}

} // namespace zelview
