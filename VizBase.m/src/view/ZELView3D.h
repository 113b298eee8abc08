#pragma once

#include "ZELOpConfigurator.h"
#include "ZELSegmentTagger.h"
#include "host_api.h"
#include "hps_api.h"
#include "message_handlers.h"

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

QT_BEGIN_NAMESPACE
class QDockWidget;
class QMenu;
QT_END_NAMESPACE

namespace ZelVizBase
{

class ViewDocument;
class ViewInteraction;
class ZELHighlightOperator;
class ZELPickRayOperator;

/// The widget over a canvas of the scene library: window, default scene, camera and input of one view. It
/// never paints through Qt; every change of the picture ends in `updateThis`. The host sees it as
/// `View3DEvo`. For the GUI thread alone.
///
/// Stages: made (canvas, view and default scene stand; the camera has no adaptor), wrapped
/// (`SetView3DEvo` and `UpdateCamera`), attached (`AttachDocument` with a valid model), which can be repeated
/// with other documents.
class ZELView3D : public QWidget,
                  public MoraCore::ICameraProvider,
                  public ZELVizCore::IRenderingOptionsListener
{
    Q_OBJECT

public:
    static std::string const s_HighlightStyleName;
    static std::string const s_DefaultStyleName;
    static std::string const s_PmiStyleName;
    static std::string const s_DrwStyleName;

    explicit ZELView3D(QWidget* parent = nullptr);
    ~ZELView3D() override;

    QPaintEngine* paintEngine() const override { return nullptr; }

    /// Shows the model of a document in place of the one before; the document learns canvas, view and
    /// highlight options. Null changes nothing; a document without a valid model shows nothing. It must
    /// outlive the view or be replaced.
    virtual void AttachDocument(MoraCore::IDocumentEvo* document);
    /// The adaptor that the host has; not owned. The camera is to be made anew behind it.
    void SetView3DEvo(MoraCore::IView3DEvo* evo) { Evo = evo; }

    /// What was attached last; null before. Not owned.
    MoraCore::IDocumentEvo* GetDocument() const { return Document; }
    HPS::Canvas Canvas() const { return TheCanvas; }
    HPS::View View() const { return TheView; }
    HPS::HighlightOptionsKit HighlightOptionsKit() const { return HighlightOptions; }
    ZELVizCore::SelectionHolder* GetSelectionHolder() const { return SelectionHolder.get(); }
    HPS::Selection::Level GetSelectionLevel() const { return SelectionLevel; }
    void SetSelectionLevel(HPS::Selection::Level const& level) { SelectionLevel = level; }
    /// Owned by the view; null only while there is no camera class of the wanted name.
    MoraCore::ACamera* GetCamera() override { return Camera.get(); }
    /// From the library segment of the model, at the front, to the window, at the back.
    HPS::KeyPath GetModelKeyPath() const;

    void Update(MoraCore::UpdateType type);
    /// Makes the camera anew with the adaptor that the view has now.
    void UpdateCamera();

    /// Half the diagonal of what the view shows; 0 for nothing.
    float GetGeometryRadius();
    /// Its middle, which the next call changes; null for nothing.
    float const* GetGeometryCenter();
    /// False, and the arguments untouched, for nothing and for a single point.
    bool GetBbox(double& xmin, double& ymin, double& zmin, double& xmax, double& ymax, double& zmax);
    /// In pixels; meaningless before the first paint or resize.
    void GetWindowSize(int& width, int& height) const;
    void SetWindowSize(int width, int height);

    ZELVizCore::RenderingOptions* GetRenderingOptions() const { return Options; }
    /// Takes all options at once; what stands in conditions, the triad and the cube stay.
    void SetRenderingOptions(ZELVizCore::RenderingOptions const& options);
    /// The options that the view listens to have changed.
    void Notify(ZELVizCore::IRenderingOptions* options) override;
    /// Takes the background of the current settings, drawing only if it differs.
    void UpdateBackgroundColors();

    /// For an inspector's dock in the host's window.
    void MakeSegmentAndPropertyBrowser(QWidget* parent, QMenu* menu);

    /// Hides a body in all its occurrences, or brings it back; drawn with the next update.
    void HideBody(unsigned long long id);
    void UnhideBody(unsigned long long id);

    /// Puts the operators of the configuration on the view's stack.
    void InitOperators();
    /// Empties the stack and builds it anew; nothing happens for the configuration in use. The navigation
    /// cube takes the mouse again afterwards.
    void ConfigureOperators(ZELOpConfigurator const& configurator);
    ZELOpConfigurator const& GetOpConfigurator() const { return OpConfigurator; }

    /// Lights a key or a path up, over what is lit already unless `clearFirst`. Nothing for an empty one.
    void Highlight(HPS::Key const& key, bool clearFirst);
    void Highlight(HPS::KeyPath const& path, bool clearFirst);
    /// An empty one stands for everything.
    void UnHighlight(HPS::Key const& key);
    void UnHighlight(HPS::KeyPath const& path);
    /// In the view and in the document's tree. `update`: draws at once.
    void UnHighlightAll(bool update);
    /// Takes the operator that answers clicks off the stack, or puts it back. Like the two below it throws
    /// std::logic_error if no configuration has had one yet.
    void ToggleHighlightOp();
    // Only kept here, for those who select.
    HPS::SelectionResults const& GetActiveSelection() const { return ActiveSelection; }
    void ClearActiveSelection() { ActiveSelection.Reset(); }
    void SetActiveSelection(HPS::SelectionResults const& selection) { ActiveSelection = selection; }
    void AppendActiveSelection(HPS::SelectionResults const& selection) { ActiveSelection.Union(selection); }
    bool SelectionIsSticky() const { return SelectionSticky; }
    void SelectionSetIsSticky(bool sticky) { SelectionSticky = sticky; }
    /// Hands the ids of what was clicked to the document's tree.
    void DefineRenderIds(std::vector<unsigned long long>& ids);
    /// Rays in place of highlights, or back again; gives what held before. Throws std::logic_error if no
    /// configuration has been taken yet.
    bool TogglePickRayOp();
    /// Hands a ray to the host; false if nobody there listens. Throws std::logic_error without an adaptor.
    bool NotifyPick(ZELVizCore::Ray const& ray);
    // What shows within four pixels of one, counted from the window's top left. False, and the outputs
    // untouched, for nothing.
    /// In the world, on any of the things there.
    bool PickPointOnModel(int x, int y, float& X, float& Y, float& Z) const;
    /// Appends the keys from what was picked, at the front, to the root of the document's scene. What is no
    /// B-rep wins, with the tagged segment above it; then vertices, then edges.
    bool PickVisual(int x, int y, HPS::KeyPath& path) const;
    /// At the pixel in which the ray starts.
    bool PickVisual(ZELVizCore::Ray const& ray, HPS::KeyPath& path) const;

    /// Brings what a path shows to fill the view, seen from the same direction; a path that shows nothing
    /// leaves the camera. False only without a camera.
    bool ZoomTo(HPS::KeyPath const& path);

    /// Shows a stream file in a model of its own, as long as no document was attached; afterwards nothing
    /// happens. What was read stays with a file that breaks off. Throws HPS::IOException for one that cannot
    /// be read.
    void TestLoadHsf(std::string const& file);

    /// Clicks, boxes and hovering. From the first call on an operator that tells clicks from drags stands in
    /// the place of the one that selects at once.
    ViewInteraction* GetInteraction();

    // Without arguments, for menus and keys.
public Q_SLOTS:
    void OnOperatorCuttingPlaneX();
    void OnOperatorCuttingPlaneY();
    void OnOperatorCuttingPlaneZ();
    void OnModeSimpleShadow();
    void OnModeShadowMap();
    void OnModeReflectionPlane();
    void OnModeBloom();
    void OnModeFlat();
    void OnModeSmooth();
    void OnModeGouraud();
    void OnModeWires();
    void OnModeTransparent();
    void OnModeHiddenLine();
    void OnToggleSegmentBrowser();
    void OnTop();
    void OnBottom();
    void OnFront();
    void OnBack();
    void OnRight();
    void OnLeft();
    void OnIsometric();
    /// Closes bodies where a plane cuts them, or leaves them open again.
    void OnModeCutCaps();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// The one road to the screen. A change of the orientation setting takes effect here.
    void updateThis(HPS::Window::UpdateType type);
    /// Errors and warnings of the scene library go to the session's messages.
    void setupErrorWarningHandlers();

    void enableHighlightOp();
    void disableHighlightOp();
    /// The nearest segment above a key that stands for a mesh, a PMI or the root of all PMI.
    HPS::SegmentKey getParentKey(HPS::Key const& key, ZELSegmentTagger::TAG_TYPE& type) const;

    void setupCamera();
    void setupSceneDefaults();
    /// `first`: the visibility before it is not looked at.
    void setupVisibility(bool first);
    void setupSelectability(bool first);
    void updateHighlighting();
    void updateDefaultStyle();
    void updatePmiStyle();
    void updateDrwStyle();

private:
    HPS::SegmentKey segment() const { return TheView.GetSegmentKey(); }
    ViewDocument* document() const;
    void inject(HPS::Event const& event);
    void sendMouse(QMouseEvent const& event, HPS::MouseEvent::Action action, unsigned clickCount);
    void sendKey(QKeyEvent const& event, HPS::KeyboardEvent::Action action);
    HPS::WindowPoint windowPoint(double x, double y) const;
    ZELHighlightOperator& highlightOperator() const;
    ZELPickRayOperator& pickRayOperator() const;
    void getArea(int x, int y, HPS::Rectangle& area) const;
    HPS::SelectionResults pickSquare(int x, int y) const;
    bool computeZoomCamera(HPS::KeyPath const& path, HPS::CameraKit& fitted) const;
    bool isVertexPicked(HPS::SelectionResults& results, HPS::SelectionItem& item) const;
    bool isEdgePicked(HPS::SelectionResults& results, HPS::SelectionItem& item) const;
    bool isFacePicked(HPS::SelectionResults& results, HPS::SelectionItem& item) const;
    bool isNonBrepPicked(HPS::SelectionResults& results, HPS::SelectionItem& item) const;
    template <class Target> void highlight(Target const& target, bool clearFirst);
    template <class Target> void unHighlight(Target const& target);
    bool showVolume(HPS::SimpleSphere& sphere, HPS::SimpleCuboid& cuboid) const;
    enum class Axis { None = 0, X = 1, Y = 2, Z = 4 };
    std::vector<HPS::Plane>& planesOf(Axis axis);
    void startCutting(Axis axis);
    /// Takes a running cutting operator down and keeps its planes, where the user left them.
    void handleCuttingPlaneOperator();
    void setOneCuttingPlane(std::vector<HPS::Plane> const& planes);
    void setMode(HPS::Rendering::Mode mode);
    void setSeeThrough(bool seeThrough);
    /// The shadow on a plane below the model follows the other modes.
    void updatePlanes();

    MoraCore::IView3DEvo* Evo = nullptr;        ///< not owned
    MoraCore::IDocumentEvo* Document = nullptr; ///< not owned; always a ViewDocument too
    HPS::Canvas TheCanvas;
    HPS::View TheView;
    HPS::PortfolioKey Portfolio;
    float WindowWidth = 0, WindowHeight = 0;
    bool ModelAttached = false; ///< stays once it is set
    HPS::DistantLightKey Light;
    HPS::HighlightOptionsKit HighlightOptions;
    HPS::RGBAColor WindowColor, WindowContrastColor;
    ZELVizCore::RenderingOptions* Options = nullptr; ///< never deleted: hosts may hold on to them
    HPS::Selection::Level SelectionLevel = HPS::Selection::Level::Entity;
    HPS::SelectionResults ActiveSelection;
    bool SelectionSticky = true;
    HPS::UTF8Array HideConditions; ///< in force on the view's segment
    HPS::SelectabilityKit SavedSelectability;
    HPS::VisibilityKit SavedVisibility;
    ZELOpConfigurator OpConfigurator;
    ZELHPSErrorHandler ErrorHandler;
    ZELHPSWarningHandler WarningHandler;
    std::vector<HPS::Plane> PlanesX, PlanesY, PlanesZ;
    bool CuttingOn = false;        ///< an operator was started and not taken down
    Axis CuttingAxis = Axis::None; ///< whose planes it has
    bool SeeThrough = false;
    QDockWidget* BrowserDock = nullptr; ///< not owned
    bool SegmentBrowserReady = false;   ///< its tree was given a canvas
    bool SimpleShadowOn = false, ShadowMapOn = false, ReflectionOn = false, BloomOn = false;
    std::unique_ptr<MoraCore::ACamera> Camera;
    bool YUp; ///< the camera class in use
    float GeometryRadius = 0;
    float GeometryCenter[3] = {0, 0, 0};
    HPS::SprocketPath ModelPath;
    std::shared_ptr<ZELHighlightOperator> HighlightOperator; ///< shared with the stack
    std::shared_ptr<ZELPickRayOperator> PickRayOperator;
    std::unique_ptr<ZELVizCore::SelectionHolder> SelectionHolder;
    std::unique_ptr<ViewInteraction> Interaction; ///< null: nobody has asked for it
};

} // namespace ZelVizBase
