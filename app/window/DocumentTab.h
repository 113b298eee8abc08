#pragma once

#include "OpenDocument.h"
#include "ViewChoice.h"
#include "commands.h"

#include <QFileSystemWatcher>
#include <QTimer>
#include <QWidget>

#include <mora/mouse_styles.h>

class QFrame;

namespace MoraCore
{
class ACamera;
} // namespace MoraCore

namespace zelview
{

class TreePanel;
class ViewHand;

/// One view with the document in it: the page of a tab. The view is reached by the host's interface alone.
class DocumentTab final : public QWidget
{
    Q_OBJECT

public:
    /// @param plugin must outlive the tab
    explicit DocumentTab(Plugin& plugin, QWidget* parent = nullptr);
    ~DocumentTab() override;

    /// Builds and shows what was read in place of what is here. False, with this as it was, if it cannot be
    /// built; the cause stands in the document's messages.
    bool show(std::shared_ptr<OpenDocument> const& document, bool keepCamera);
    bool hasDocument() const { return Current != nullptr; }
    QString path() const { return Current ? Current->path : QString(); }
    MoraCore::IDocumentEvo& document() const { return *Current->document; }
    MoraCore::IView3DEvo& view() const { return *View; }
    MoraCore::ACamera* camera() const;
    ViewHand& hand() const { return *Hand; }
    /// The tree beside the view; null without a document. Owned by this tab unless a parent took it.
    TreePanel* treePanel() const { return Panel; }

    /// Camera, mode and edges as chosen; the camera once the view was painted, because the first view of a
    /// process then chooses one for itself.
    void apply(ViewChoice const& choice);
    /// The view takes the settings that are in force.
    void applySettings();
    void lookFrom(StandardView view);
    void fit();
    void selectNothing();
    void setParallel(bool parallel);
    /// Cuts the model by the plane of a command, which the mouse then drags.
    void cut(Command plane);
    void stopCutting();
    std::optional<Command> cutting() const { return Cutting; }
    /// How the mouse works; a plane that cuts would be in its way and goes.
    void setMouseStyle(MoraCore::MouseStyle const& style);
    /// Calls a slot of the view by its name; false if it has none of that name.
    bool callView(char const* slot);
    bool viewHas(char const* slot) const;
    QImage picture() const;

    /// A line above the view that offers to read the file again.
    void offerReload();

signals:
    void fileChanged();
    /// Other than by the mouse.
    void cameraChanged();
    void reloadWanted();
    void treeMenuWanted(ZELVizCore::RenderId const& id, QPoint const& globalPosition);
    void nodeChosen(ZELVizCore::RenderId const& id);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void placeCamera();
    void makeTreePanel();
    void choose(std::vector<ZELVizCore::RenderId> const& ids);
    void selectionChanged();
    void open(ZELVizCore::RenderId const& id);
    void watch();

    Plugin& Source;
    std::unique_ptr<MoraCore::IView3DEvo> View;
    std::unique_ptr<ViewHand> Hand; ///< goes before the view
    std::shared_ptr<OpenDocument> Current;
    TreePanel* Panel = nullptr;
    MoraCore::MouseStyle const* Style = nullptr; ///< one of the table's
    std::optional<Command> Cutting;
    ViewChoice Waiting; ///< as last applied; set up once the view was painted
    bool Painted = false;
    QFrame* Offer; ///< hidden unless the file has changed
    QFileSystemWatcher Watcher;
    QTimer Settling; ///< a file that is being written changes many times
};

} // namespace zelview
