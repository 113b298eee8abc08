#pragma once
#include <cstdint>
#include <hps/Rectangle.h>
#include <hps/UTF8.h>
#include <hps/View.h>

namespace HPS
{

class SegmentKey;

namespace Corner
{
enum class Location : std::uint32_t { TopLeft, TopRight, BottomLeft, BottomRight, Custom };
}

namespace detail
{

// What the axis triad and the navigation cube of a view share: a small window in a corner of the view's, with
// a camera that turns with the view's. Every operation on a view that is gone does nothing.
class CornerHandle
{
public:
    enum class Kind { AxisTriad, NavigationCube };

    bool GetVisibility() const;
    bool GetInteractivity() const;
    float GetSize() const;
    Corner::Location GetLocation() const;
    // False if the palette is the built-in one.
    bool ShowMaterialPalette(UTF8& name) const;
    // Below the view's segment; made if it is not there yet. What is set on it holds for all that is shown.
    SegmentKey GetSegmentKey() const;

protected:
    CornerHandle(Kind kind, View const& view) : kind_(kind), view_(view) {}
    void setVisibility(bool state) const;
    void setInteractivity(bool state) const;
    void setSize(float size) const;
    void setLocation(Corner::Location location, Rectangle const& position) const;
    void setMaterialPalette(UTF8 const& name) const;

    Kind kind_;
    View view_;
};

// The operations that give the control itself back.
template <class Self> class CornerOperations : public CornerHandle
{
public:
    Self& SetVisibility(bool state) { return setVisibility(state), self(); }
    Self& SetInteractivity(bool state) { return setInteractivity(state), self(); }
    // As a share of the view's window in both directions, above 0 and up to 1; others are ignored.
    Self& SetSize(float size) { return setSize(size), self(); }
    // `position` counts for Custom alone, from -1 to 1 in the view's window.
    Self& SetLocation(Corner::Location location, Rectangle const& position = {})
    {
        return setLocation(location, position), self();
    }
    // By its name in a portfolio in reach of the view; the empty name goes back to the built-in colours.
    Self& SetMaterialPalette(UTF8 const& name) { return setMaterialPalette(name), self(); }

protected:
    using CornerHandle::CornerHandle;

private:
    Self& self() { return static_cast<Self&>(*this); }
};

} // namespace detail
} // namespace HPS
