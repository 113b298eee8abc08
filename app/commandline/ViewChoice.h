#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace zelview
{

enum class StandardView { Isometric, Front, Top, Right, Back, Bottom, Left };

enum class ShadingMode { Gouraud, Flat, Smooth, Wires, HiddenLine };

/// A value of an enumeration by the name that the user writes.
template <class Value> struct Named {
    Value value;
    std::string_view name;
};

/// In the order of the keys 0 to 6.
inline constexpr Named<StandardView> StandardViewNames[] = {{StandardView::Isometric, "isometric"},
                                                            {StandardView::Front, "front"},
                                                            {StandardView::Top, "top"},
                                                            {StandardView::Right, "right"},
                                                            {StandardView::Back, "back"},
                                                            {StandardView::Bottom, "bottom"},
                                                            {StandardView::Left, "left"}};

inline constexpr Named<ShadingMode> ShadingModeNames[] = {{ShadingMode::Gouraud, "gouraud"},
                                                          {ShadingMode::Flat, "flat"},
                                                          {ShadingMode::Smooth, "smooth"},
                                                          {ShadingMode::Wires, "wires"},
                                                          {ShadingMode::HiddenLine, "hidden-line"}};

using Triple = std::array<float, 3>;

/// How a model is to be looked at, as far as the user said so.
struct ViewChoice {
    std::optional<StandardView> view;
    std::optional<Triple> position; ///< in the model's unit, as are the next two
    std::optional<Triple> target;
    std::optional<Triple> up;
    std::optional<float> fieldOfView; ///< degrees over the height of the picture
    bool orthographic = false;
    bool fit = false;
    std::optional<ShadingMode> mode;
    std::optional<bool> edges;

    /// Whether anything was said about the camera.
    bool placesCamera() const
    {
        return view || position || target || up || fieldOfView || orthographic || fit;
    }
};

} // namespace zelview
