#pragma once
#include <hps/Canvas.h>
#include <hps/EventDispatcher.h>
#include <hps/InputEvent.h>
#include <vector>

namespace HPS
{

/// Knows from a window's events whether its user holds a mouse button or has a finger down. Between press
/// and release a canvas may show less than it could at rest; when the last of them goes up and nobody has
/// brought the full picture by then, this does.
class InteractionWatch final : public EventHandler
{
public:
    InteractionWatch(KeyIndex canvas, EventDispatcher dispatcher);
    ~InteractionWatch() override;

    bool interacting() const { return !pressed_.empty() || !fingers_.empty(); }

    HandleResult Handle(Event const* event) override;

private:
    void take(MouseEvent const& event);
    void take(TouchEvent const& event);
    void beLast();
    void end();

    KeyIndex canvas_;
    EventDispatcher dispatcher_; ///< the window's
    std::vector<MouseButtons> pressed_;
    std::vector<std::uint64_t> fingers_;
};

} // namespace HPS
