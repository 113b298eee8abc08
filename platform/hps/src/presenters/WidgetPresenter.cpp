#include "WidgetPresenter.h"
#include <QApplication>
#include <QBackingStore>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <chrono>
#include <cmath>

namespace HPS
{
namespace
{

// Widgets are the library's only kind of window, so they are known from the start.
[[maybe_unused]] bool const registered = (setPresenterMaker(makeWidgetPresenter), true);

int inPixels(int size, QWidget const& widget)
{
    return int(std::lround(size * widget.devicePixelRatioF()));
}

} // namespace

std::unique_ptr<Presenter> makeWidgetPresenter(WindowHandle window)
{
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return nullptr;
    QWidget* const widget = QWidget::find(WId(window));
    return widget != nullptr ? std::make_unique<WidgetPresenter>(widget) : nullptr;
}

WidgetPresenter::WidgetPresenter(QWidget* widget) : widget_(widget) {}

WidgetPresenter::~WidgetPresenter() = default;

bool WidgetPresenter::showSize(int& width, int& height) const
{
    if (widget_.isNull()) return false;
    width = std::max(inPixels(widget_->width(), *widget_), 1);
    height = std::max(inPixels(widget_->height(), *widget_), 1);
    return true;
}

bool WidgetPresenter::showScreen(Screen& screen) const
{
    QScreen const* const on = widget_.isNull() ? nullptr : widget_->screen();
    if (on == nullptr) return false;
    QSize const pixels = on->size() * on->devicePixelRatio();
    QSizeF const millimetres = on->physicalSize();
    if (millimetres.isEmpty()) return false;
    screen = {unsigned(pixels.width()), unsigned(pixels.height()), float(millimetres.width() / 10),
              float(millimetres.height() / 10)};
    return true;
}

bool WidgetPresenter::isSeen() const
{
    QWindow const* const window = widget_.isNull() ? nullptr : widget_->windowHandle();
    return window != nullptr && window->isExposed();
}

void WidgetPresenter::present(Picture const& picture)
{
    if (!isSeen()) return;
    QWindow* const window = widget_->windowHandle();
    if (store_ == nullptr || window_ != window) {
        store_ = std::make_unique<QBackingStore>(window);
        window_ = window;
    }
    if (store_->size() != window->size()) store_->resize(window->size());
    QRect const all(QPoint(), window->size());
    store_->beginPaint(all);
    QImage image(picture.pixels.data(), picture.width, picture.height, picture.width * 4,
                 QImage::Format_RGBX8888);
    image.setDevicePixelRatio(widget_->devicePixelRatioF());
    QPainter painter(store_->paintDevice());
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QPoint(), image);
    painter.end();
    store_->endPaint();
    store_->flush(all);
}

void WidgetPresenter::callBack(std::function<void()> next)
{
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(next), Qt::QueuedConnection);
}

void WidgetPresenter::whenIdle(std::function<void()> next)
{
    using namespace std::chrono_literals;
    // What lies in the queue, a widget's wish to be painted too, comes before any timer.
    QTimer::singleShot(1ms, Qt::PreciseTimer, QCoreApplication::instance(), std::move(next));
}

bool WidgetPresenter::requestFrame(std::function<void()> next)
{
    using namespace std::chrono_literals;
    if (widget_.isNull()) return false;
    // The screen's own rhythm is not known; what lies in the queue, the user's input too, comes first.
    QTimer::singleShot(16ms, Qt::PreciseTimer, widget_.data(), std::move(next));
    return true;
}

} // namespace HPS
