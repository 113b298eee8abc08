#pragma once

#include <QObject>
#include <QPoint>

#include <mora/IViewInteraction.h>

namespace MoraCore
{
class IView3DEvo;
} // namespace MoraCore

namespace zelview
{

/// What the user does in one view with the mouse, as signals. A view without a hand sends none, and does
/// nothing of what is asked here.
class ViewHand final : public QObject, private MoraCore::IInteractionListener
{
    Q_OBJECT

public:
    using RenderIds = std::vector<ZELVizCore::RenderId>;

    /// @param view not owned; must outlive this
    explicit ViewHand(MoraCore::IView3DEvo& view, QObject* parent = nullptr);
    ~ViewHand() override;

    void setMouseStyle(MoraCore::MouseStyle const& style);
    void setHovering(bool hovering);

    RenderIds selection() const;
    void select(RenderIds const& ids);
    void clearSelection();
    bool selectParents();
    bool zoomToSelection();

    /// The bodies among the selected nodes, by their ids.
    std::vector<unsigned long long> selectedBodies() const;
    void hideSelectedBodies();
    void showHiddenBodies();
    bool hasHiddenBodies() const { return !Hidden.empty(); }

signals:
    /// An empty id: nothing is there, or the mouse is elsewhere.
    void pointed(MoraCore::PointedAt const& at);
    void selectionChanged();
    /// @param position in the view's widget
    void menuWanted(QPoint const& position);

private:
    void OnPointed(MoraCore::PointedAt const& at) override { emit pointed(at); }
    void OnSelectionChanged() override { emit selectionChanged(); }
    void OnMenuWanted(int x, int y) override { emit menuWanted({x, y}); }

    MoraCore::IView3DEvo& View;
    MoraCore::IViewInteraction* Hand; ///< owned by the view; may be null
    std::vector<unsigned long long> Hidden;
};

} // namespace zelview
