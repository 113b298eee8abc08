#pragma once

#include "StandInHand.h"

#include <QWidget>

#include <mora/ACamera.h>
#include <mora/IView3DEvo.h>

#include <string>
#include <vector>

class StandInWidget final : public QWidget
{
    Q_OBJECT

public slots:
    void OnModeGouraud() { note("OnModeGouraud"); }
    void OnModeFlat() { note("OnModeFlat"); }
    void OnModeWires() { note("OnModeWires"); }
    void OnOperatorCuttingPlaneX() { note("OnOperatorCuttingPlaneX"); }
    void OnOperatorCuttingPlaneY() { note("OnOperatorCuttingPlaneY"); }
};

class StandInCamera final : public MoraCore::ACamera
{
public:
    using ACamera::ACamera;
    using ACamera::cloneTo;
    char const* GetName() const override { return "StandInCamera"; }
    void GetWindowSize(int& width, int& height) override { width = height = 100; }
    void SetStandardPosition(float*, float*, float*) override {}
    void Top() override { note("Top"); }
    void Bottom() override { note("Bottom"); }
    void Front() override { note("Front"); }
    void Back() override { note("Back"); }
    void Right() override { note("Right"); }
    void Left() override { note("Left"); }
    void Isometric() override { note("Isometric"); }
    void OrientDrawingView() override { note("OrientDrawingView"); }
    MoraCore::ACamera* cloneTo(MoraCore::IView3DEvo* view) const override { return new StandInCamera(view); }
    float const* GetGeometryCenter() override { return Center; }
    float GetGeometryRadius() override { return 1; }

protected:
    void getCurrentCamera() override {}
    void setFront(float*, float*, float*, bool) override {}
    void moveCamera(float* position, float*, float*) override
    {
        note(QString("camera %1 %2 %3").arg(position[0]).arg(position[1]).arg(position[2]));
    }
    void animateCamera(float* position, float* target, float* up) override
    {
        moveCamera(position, target, up);
    }

private:
    float Center[3] = {0, 0, 0};
};

class StandInView final : public MoraCore::IView3DEvo
{
public:
    StandInView() { SetViewImpl(Widget); }
    QWidget* GetWidget() override { return Widget; }
    void AttachDocument(MoraCore::IDocumentEvo*) override { note("AttachDocument"); }
    void MakeSegmentAndPropertyBrowser(QWidget*, QMenu*) override {}
    void Update(MoraCore::UpdateType) override {}
    ZELVizCore::RenderingOptions* GetRenderingOptions() override { return &Options; }
    void SetRenderingOptions(ZELVizCore::RenderingOptions const& options) override { Options = options; }
    void UpdateBackgroundColors() override { note("UpdateBackgroundColors"); }
    bool GetBbox(double& x0, double& y0, double& z0, double& x1, double& y1, double& z1) override
    {
        x0 = y0 = z0 = -1;
        x1 = y1 = z1 = 1;
        return true;
    }
    MoraCore::ACamera* GetCamera() override { return &Camera; }
    bool TogglePickRayOp() override { return false; }
    bool GetPickRay(ZELVizCore::Ray&) override { return false; }
    bool NotifyPick(ZELVizCore::Ray const&) override { return false; }
    ZELVizCore::SelectionHolder* GetSelectionHolder() override { return nullptr; }
    bool SelectionIsSticky() override { return false; }
    void SelectionSetIsSticky(bool) override {}
    void UnHighlightAll() override { note("UnHighlightAll"); }
    void UnhideBody(unsigned long long id) override { note(QString("UnhideBody %1").arg(id)); }
    void HideBody(unsigned long long id) override { note(QString("HideBody %1").arg(id)); }
    MoraCore::IViewInteraction* GetInteraction() override { return &Hand; }

private:
    StandInWidget* Widget = new StandInWidget;
    ZELVizCore::RenderingOptions Options;
    StandInCamera Camera{this};
    StandInHand Hand;
};
