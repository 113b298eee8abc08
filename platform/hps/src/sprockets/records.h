// What stands behind the sprocket handles.
#pragma once
#include "SlotTable.h"
#include "corner.h"
#include "subscriptions.h"
#include <hps/ApplicationWindowOptionsKit.h>
#include <hps/CameraKit.h>
#include <hps/Canvas.h>
#include <hps/SegmentKey.h>
#include <memory>
#include <optional>
#include <utility>

namespace HPS
{

class CameraTransition;
class CanvasPicture;
class InputRouter;
class InteractionWatch;
class OperatorStack;
class Presenter;

struct ModelRecord {
    UTF8 name;
    SegmentKey segment, library;                          ///< ours
    PortfolioKey portfolio;                               ///< ours
    std::optional<std::pair<Vector, Vector>> orientation; ///< up, front
};

struct ViewRecord {
    ViewRecord();
    ~ViewRecord();

    UTF8 name;
    SegmentKey segment;      ///< ours
    SegmentKey modelInclude; ///< below `segment`
    IncludeKey include;      ///< of the model's segment, in `modelInclude`
    Model model;
    Rendering::Mode mode = Rendering::Mode::Gouraud;
    CameraKit automatic; ///< the last camera set by the view itself; one that differs is the user's
    CornerRecords corners;
    std::unique_ptr<CameraTransition> transition; ///< under way
    std::unique_ptr<OperatorStack> operators;
};

struct LayoutRecord {
    struct Layer {
        View view;
        SegmentKey segment; ///< below the layout's segment
        IncludeKey include; ///< of the view's segment, in `segment`
    };
    UTF8 name;
    SegmentKey segment;        ///< ours
    std::vector<Layer> layers; ///< from back to front
};

/// What is asked of an update.
struct UpdateRequest {
    Window::UpdateType type = Window::UpdateType::Default;
    double timeLimit = -1;    ///< seconds; negative for none
    bool interacting = false; ///< somebody moves something about; a picture soon counts more than a full one
};

/// A picture that is being made beside the caller, or is made and waits for the caller's next look.
struct PendingPicture {
    std::string failure;
    bool present = false; ///< `picture` is to be shown
    Picture picture;
    std::vector<scene::HeldMessages::Message> messages;
};

struct CanvasRecord {
    CanvasRecord();
    ~CanvasRecord();

    UTF8 name;
    SegmentKey window; ///< ours
    Layout layout;
    IncludeKey include; ///< of the layout's segment, in `window`
    float frameRate = 0;
    int width = 1280, height = 720; ///< pixels
    int samples = 4;
    ApplicationWindowOptionsKit options; ///< as it was made
    std::unique_ptr<CanvasPicture> picture;
    std::unique_ptr<InteractionWatch> watch;
    std::unique_ptr<Presenter> presenter; ///< null where no window shows the canvas
    std::unique_ptr<InputRouter> input;
    std::optional<UpdateRequest> wanted;     ///< and not begun
    bool scheduled = false;                  ///< the window's event loop will look at what is wanted
    std::unique_ptr<PendingPicture> pending; ///< begun; null: what was is shown and told
    UpdateReport report;
    UTF8 failure; ///< of the last update
};

/// All sprockets of the process. They live on the caller's thread alone, as the database does.
struct Registry {
    SlotTable<ModelRecord> models;
    SlotTable<ViewRecord> views;
    SlotTable<LayoutRecord> layouts;
    SlotTable<CanvasRecord> canvases;

    static Registry& instance();

    ModelRecord* find(Model const& model) const { return models.find(model.Index()); }
    ViewRecord* find(View const& view) const { return views.find(view.Index()); }
    LayoutRecord* find(Layout const& layout) const { return layouts.find(layout.Index()); }
    CanvasRecord* find(Canvas const& canvas) const { return canvases.find(canvas.Index()); }
    /// Null if no canvas has this window.
    CanvasRecord* findWindow(KeyIndex window) const;
    /// Those that show the view.
    std::vector<Canvas> canvasesOf(View const& view) const;
};

} // namespace HPS
