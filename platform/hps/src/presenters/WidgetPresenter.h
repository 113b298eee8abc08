#pragma once
#include "Presenter.h"
#include <QPointer>

QT_BEGIN_NAMESPACE
class QBackingStore;
class QWidget;
class QWindow;
QT_END_NAMESPACE

namespace HPS
{

/// Shows pictures in a native widget of Qt through a backing store of our own on its window. That works on
/// every platform of Qt and needs no OpenGL of the window system. Neither the widget's id nor its window is
/// kept from one picture to the next, for docking changes both.
class WidgetPresenter final : public Presenter
{
public:
    explicit WidgetPresenter(QWidget* widget);
    ~WidgetPresenter() override;

    /// Width and height of the widget times its device pixel ratio.
    bool showSize(int& width, int& height) const override;
    bool showScreen(Screen& screen) const override;
    bool isSeen() const override;
    /// Nothing happens while the window is not exposed; it asks to be painted once it is.
    void present(Picture const& picture) override;
    /// All by the application's event loop; the first two whether or not the widget lives to see it, for
    /// other canvases may wait for their turn.
    bool callsBack() const override { return true; }
    void callBack(std::function<void()> next) override;
    void whenIdle(std::function<void()> next) override;
    bool requestFrame(std::function<void()> next) override;

private:
    QPointer<QWidget> widget_; ///< not owned
    QPointer<QWindow> window_; ///< that `store_` was made for
    std::unique_ptr<QBackingStore> store_;
};

/// Null if the handle is not that of a widget of this process, or there is no application for widgets.
std::unique_ptr<Presenter> makeWidgetPresenter(WindowHandle window);

} // namespace HPS
