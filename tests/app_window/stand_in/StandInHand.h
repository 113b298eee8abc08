#pragma once

#include <QCoreApplication>
#include <QStringList>
#include <QVariant>

#include <mora/IViewInteraction.h>

/// Every call that the host made, in order; kept on the application object, where the test finds it.
inline void note(QString const& call)
{
    QStringList calls = QCoreApplication::instance()->property("calls").toStringList();
    QCoreApplication::instance()->setProperty("calls", calls << call);
}

/// A hand that selects what it is told and lets a test play the user.
class StandInHand final : public MoraCore::IViewInteraction
{
public:
    void SetInteractionListener(MoraCore::IInteractionListener* listener) override { Listener = listener; }
    void SetMouseStyle(MoraCore::MouseStyle const& style) override { note(QString("style ") + style.word); }
    void SetHovering(bool hovering) override { note(hovering ? "hovering on" : "hovering off"); }
    RenderIds GetSelection() const override { return Selection; }
    void Select(RenderIds const& ids) override
    {
        note(QString("Select %1").arg(ids.size()));
        Selection = ids;
        Listener->OnSelectionChanged();
    }
    void ClearSelection() override { Select({}); }
    bool SelectParents() override
    {
        note("SelectParents");
        return true;
    }
    bool ZoomToSelection() override
    {
        note("ZoomToSelection");
        return true;
    }

    MoraCore::IInteractionListener* Listener = nullptr;
    RenderIds Selection;
};
