#pragma once
#include <hps/Canvas.h>

namespace HPS
{

class KeyPath;

// The way from a canvas down to a model. The tail may be left out.
class SprocketPath
{
public:
    SprocketPath() = default;
    explicit SprocketPath(HPS::Canvas const& canvas, HPS::Layout const& layout = {},
                          HPS::View const& view = {}, HPS::Model const& model = {})
        : canvas_(canvas), layout_(layout), view_(view), model_(model)
    {
    }

    HPS::Canvas const& GetCanvas() const { return canvas_; }
    HPS::Layout const& GetLayout() const { return layout_; }
    HPS::View const& GetView() const { return view_; }
    HPS::Model const& GetModel() const { return model_; }

    // Segments and includes from the model's segment, at the front, to the canvas's window, at the back.
    // Empty if one of the sprockets given is gone, or is not attached to the one before it.
    KeyPath GetKeyPath() const;

private:
    HPS::Canvas canvas_;
    HPS::Layout layout_;
    HPS::View view_;
    HPS::Model model_;
};

} // namespace HPS
