#pragma once
#include "SceneSearch.h"
#include <deque>
#include <hps/SelectionResults.h>

namespace HPS::selection
{

/// Puts one question to all that a window shows: its views, and the parts of the window within them.
class WindowSearch
{
public:
    WindowSearch(Key const& window, SelectionOptionsKit const& options);

    /// What is asked of each part of the window; nothing where it has no share in the question.
    using Ask = std::function<std::optional<Probe>(PickFrame const&)>;
    std::size_t run(Ask const& ask, SelectionResults& results);

    PickOptions const& options() const { return options_; }
    /// Pixels; nothing for a window that is gone.
    std::optional<PixelArea> const& area() const { return area_; }

private:
    /// A part of the window with a camera of its own.
    struct Pane {
        SearchTop top;
        render::Camera camera;
        PickFrame frame;
        std::optional<Probe> probe;
        int order; ///< drawn over those with lower numbers
    };
    struct PaneFound {
        Pane const* pane;
        Found found;
    };
    void addViews(Key const& window);
    void addWindow(Pane const& around, SearchTop const& top);
    void search(Ask const& ask);
    void joinSegments();
    void sort();
    bool isSeen(PaneFound const& found, std::vector<KeyPath> const& seen);
    std::vector<KeyPath> facesSeen(Pane const& pane);
    KeyPath pathOf(Found const& found) const;

    PickScene& scene_;
    PickOptions options_;
    std::optional<PixelArea> area_;
    PathSteps steps_;
    std::deque<Pane> panes_;
    std::vector<PaneFound> found_;
};

} // namespace HPS::selection
