#include "DocumentTab.h"

#include "CameraPose.h"
#include "TreePanel.h"
#include "ViewHand.h"
#include "commands.h"

#include <mora/ACamera.h>
#include <mora/Settings.h>

#include <QEvent>
#include <QFileInfo>
#include <QFrame>
#include <QLabel>
#include <QMetaMethod>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace zelview
{

using ZELVizCore::RenderId;
using ZELVizCore::Settings;

namespace
{

constexpr int SettlingMilliseconds = 500;

QByteArray signatureOf(char const* slot)
{
    return QByteArray(slot) + "()";
}

} // namespace

DocumentTab::DocumentTab(Plugin& plugin, QWidget* parent)
    : QWidget(parent),
      Source(plugin),
      View(plugin.makeView()),
      Hand(std::make_unique<ViewHand>(*View)),
      Offer(new QFrame)
{
    connect(Hand.get(), &ViewHand::selectionChanged, this, &DocumentTab::selectionChanged);
    QWidget* const widget = View->GetWidget();
    widget->setAccessibleName(tr("3D view"));
    widget->setMinimumSize(64, 64);
    widget->installEventFilter(this);

    auto* const again = new QPushButton(tr("Reload"));
    auto* const leave = new QPushButton(tr("Ignore"));
    auto* const row = new QHBoxLayout(Offer);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(new QLabel(tr("The file has changed on the disk.")), 1);
    row->addWidget(again);
    row->addWidget(leave);
    Offer->setFrameShape(QFrame::StyledPanel);
    Offer->hide();
    connect(again, &QPushButton::clicked, this, [this] {
        Offer->hide();
        emit reloadWanted();
    });
    connect(leave, &QPushButton::clicked, Offer, &QWidget::hide);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(Offer);
    column->addWidget(widget, 1);
    setFocusProxy(widget);

    Settling.setSingleShot(true);
    Settling.setInterval(SettlingMilliseconds);
    connect(&Watcher, &QFileSystemWatcher::fileChanged, &Settling, qOverload<>(&QTimer::start));
    connect(&Watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        // A file that is written anew under another name and renamed is lost to the watcher.
        if (!Watcher.files().contains(path()) && QFileInfo::exists(path())) Settling.start();
    });
    connect(&Settling, &QTimer::timeout, this, [this] {
        if (!Current || !QFileInfo::exists(path())) return;
        watch();
        emit fileChanged();
    });
}

DocumentTab::~DocumentTab()
{
    delete Panel;
    Hand.reset();
    // The view holds on to its document, and the adaptor to the view.
    delete View->GetWidget();
    View.reset();
}

bool DocumentTab::show(std::shared_ptr<OpenDocument> const& document, bool keepCamera)
{
    float position[3], target[3], up[3];
    bool const parallel = camera() && camera()->IsOrthographic();
    if (keepCamera && camera()) camera()->GetCamera(position, target, up);

    std::shared_ptr<OpenDocument> const former = Current;
    View->AttachDocument(document->document.get());
    if (!document->document->Open(document->path.toStdWString().c_str())) {
        if (former) View->AttachDocument(former->document.get());
        return false;
    }
    delete Panel;
    stopCutting();
    Current = document;
    makeTreePanel();
    Offer->hide();
    watch();
    if (keepCamera && former && camera()) {
        camera()->SetOrthographic(parallel);
        camera()->SetCamera(position, target, up);
    }
    return true;
}

void DocumentTab::watch()
{
    if (QStringList const watched = Watcher.files() + Watcher.directories(); !watched.isEmpty())
        Watcher.removePaths(watched);
    Watcher.addPaths({path(), QFileInfo(path()).absolutePath()});
}

void DocumentTab::makeTreePanel()
{
    Panel = new TreePanel(Current->tree);
    Panel->model().setToolTips([&document = *Current->document](RenderId const& id) {
        return QString::fromStdWString(document.GetToolTip(id));
    });
    Panel->refresh();
    connect(Panel, &QObject::destroyed, this, [this] { Panel = nullptr; });
    connect(Panel, &TreePanel::chosen, this, &DocumentTab::nodeChosen);
    connect(Panel, &TreePanel::selected, this, &DocumentTab::choose);
    connect(Panel, &TreePanel::opened, this, &DocumentTab::open);
    connect(Panel, &TreePanel::menuWanted, this, &DocumentTab::treeMenuWanted);
}

MoraCore::ACamera* DocumentTab::camera() const
{
    return View->GetCamera();
}

void DocumentTab::choose(std::vector<RenderId> const& ids)
{
    Hand->select(ids);
    emit nodeChosen(ids.empty() ? RenderId() : ids.back()); // whether or not the scene has it
}

void DocumentTab::selectionChanged()
{
    if (!hasDocument()) return;
    std::vector<RenderId> const selected = Hand->selection();
    emit nodeChosen(selected.empty() || !Panel ? RenderId() : Panel->nodeOf(selected.back()));
}

void DocumentTab::open(RenderId const& id)
{
    using Kind = MoraCore::TreeBuilder::Kind;
    auto const* const node = Panel ? Panel->itemOf(id) : nullptr;
    if (node && (node->kind == Kind::View || node->kind == Kind::Capture))
        Source.perform(MenuEntry::ActivateViewOrCapture, id);
    else
        document().ZoomTo(id, View.get());
    emit cameraChanged();
}

void DocumentTab::apply(ViewChoice const& choice)
{
    if (choice.mode) callView(rowOf(commandOf(*choice.mode)).viewSlot);
    if (choice.edges)
        if (auto* const options = View->GetRenderingOptions()) options->SetDisplayEdges(*choice.edges);
    Waiting = choice;
    if (Painted) placeCamera();
}

bool DocumentTab::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && !Painted) {
        Painted = true;
        QTimer::singleShot(0, this, [this] { // behind the view's own handler
            placeCamera();
            emit cameraChanged();
        });
    }
    return QWidget::eventFilter(watched, event);
}

void DocumentTab::placeCamera()
{
    fit();
    ViewChoice const& choice = Waiting;
    if (!choice.placesCamera() || !camera()) return;
    SceneBounds bounds;
    double x0 = 0, y0 = 0, z0 = 0, x1 = 0, y1 = 0, z1 = 0;
    if (View->GetBbox(x0, y0, z0, x1, y1, z1)) {
        auto const middle = [](double a, double b) { return static_cast<float>((a + b) / 2); };
        bounds.center = {middle(x0, x1), middle(y0, y1), middle(z0, z1)};
        bounds.radius = static_cast<float>(std::hypot(x1 - x0, y1 - y0, z1 - z0) / 2);
    }
    QSize const size = View->GetWidget()->size();
    float const aspect =
        size.isEmpty() ? 1.0F : static_cast<float>(size.width()) / static_cast<float>(size.height());
    CameraPose pose = cameraPose(choice, bounds, aspect, Settings::Current().ClassicalOrientation);
    camera()->SetFieldOfView(pose.fieldOfView);
    camera()->SetOrthographic(pose.orthographic);
    camera()->SetCamera(pose.position.data(), pose.target.data(), pose.up.data());
}

void DocumentTab::applySettings()
{
    Settings const& settings = Settings::Current();
    if (auto const* const options = View->GetRenderingOptions()) {
        ZELVizCore::RenderingOptions changed(*options);
        changed.SetDefaultBodyColor(settings.BodyColor);
        changed.SetDefaultFaceColor(settings.BodyColor);
        changed.SetDefaultEdgeColor(settings.EdgeColor);
        changed.SetDefaultVertexColor(settings.VertexColor);
        changed.SetDefaultTessEdgeColor(settings.TessEdgeColor);
        changed.SetHighlightColor(settings.HighlightColor);
        View->SetRenderingOptions(changed);
    }
    View->UpdateBackgroundColors();
    View->Update(MoraCore::UpdateType::Default);
}

void DocumentTab::lookFrom(StandardView view)
{
    MoraCore::ACamera* const shown = camera();
    if (!shown) return;
    switch (view) {
    case StandardView::Isometric:
        return shown->Isometric();
    case StandardView::Front:
        return shown->Front();
    case StandardView::Top:
        return shown->Top();
    case StandardView::Right:
        return shown->Right();
    case StandardView::Back:
        return shown->Back();
    case StandardView::Bottom:
        return shown->Bottom();
    case StandardView::Left:
        return shown->Left();
    }
}

void DocumentTab::fit()
{
    if (camera()) camera()->ZoomAll();
}

void DocumentTab::selectNothing()
{
    document().UnSelect(View.get());
    Hand->clearSelection();
}

void DocumentTab::setParallel(bool parallel)
{
    if (camera()) camera()->SetOrthographic(parallel);
}

void DocumentTab::cut(Command plane)
{
    if (callView(rowOf(plane).viewSlot)) Cutting = plane;
}

// A new set of operators is without the one that cuts.
void DocumentTab::stopCutting()
{
    if (std::exchange(Cutting, std::nullopt) && Style) Hand->setMouseStyle(*Style);
    View->Update(MoraCore::UpdateType::Default);
}

void DocumentTab::setMouseStyle(MoraCore::MouseStyle const& style)
{
    Style = &style;
    Cutting.reset();
    Hand->setMouseStyle(style);
}

bool DocumentTab::viewHas(char const* slot) const
{
    return View->GetWidget()->metaObject()->indexOfSlot(signatureOf(slot)) >= 0;
}

bool DocumentTab::callView(char const* slot)
{
    return viewHas(slot) && QMetaObject::invokeMethod(View->GetWidget(), slot, Qt::DirectConnection);
}

QImage DocumentTab::picture() const
{
    return Source.pictureOf(*View);
}

void DocumentTab::offerReload()
{
    Offer->show();
}

} // namespace zelview
