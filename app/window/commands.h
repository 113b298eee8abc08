#pragma once

#include "ViewChoice.h"

#include <optional>
#include <span>

namespace zelview
{

/// What the user can ask of the window.
enum class Command {
    Open,
    Add,
    Reload,
    SavePicture,
    SaveAs,
    CloseTab,
    Quit,
    Find,
    SelectNone,
    SelectParent,
    Preferences,
    ViewIsometric,
    ViewFront,
    ViewTop,
    ViewRight,
    ViewBack,
    ViewBottom,
    ViewLeft,
    Fit,
    ZoomSelection,
    Projection,
    ModeGouraud,
    ModeFlat,
    ModeSmooth,
    ModeTransparent,
    ModeWires,
    ModeHiddenLine,
    ShowFaces,
    ShowEdges,
    ShowVertices,
    ShowTessellation,
    ShowAnnotations,
    ShowAxes,
    ShowCube,
    FullScreen,
    PickRay,
    CutX,
    CutY,
    CutZ,
    CutCaps,
    SimpleShadow,
    ShadowMap,
    ReflectionPlane,
    Bloom,
    NextTab,
    PreviousTab,
    Keys,
    About,
};

enum class Menu { File, Edit, View, Tools, Window, Help };

/// How a command shows its state.
enum class Check {
    None,
    Toggle,
    Projection, ///< a toggle that follows the camera
    Mode,       ///< one of the shading modes
    Cut,        ///< one of the planes that cut, or none
    Option,     ///< a switch of the rendering options
};

struct CommandRow {
    Command command;
    Menu menu;
    char const* text;         ///< with the mnemonic
    char const* keys = "";    ///< as QKeySequence reads them, with blanks between several
    char const* drawing = ""; ///< of the icon; empty: none
    char const* side = "";    ///< more of the drawing
    bool needsDocument = false;
    bool onToolBar = false;
    Check check = Check::None;
    bool separated = false;    ///< a line stands above it in the menu
    char const* viewSlot = ""; ///< the slot of the view that does it
};

/// In the order of the menus.
std::span<CommandRow const> commandTable();
CommandRow const& rowOf(Command command);

char const* titleOf(Menu menu);

/// The standard view behind a command, if it is one.
std::optional<StandardView> standardViewOf(Command command);
Command commandOf(ShadingMode mode);

} // namespace zelview
