#include "RubberBand.h"

#include <QWidget>

namespace ZelVizBase
{

namespace
{

constexpr int Thickness = 1;
QColor const Wholly(30, 110, 220);
QColor const Touched(30, 160, 70);

} // namespace

RubberBand::RubberBand(QWidget& view) : View(view) {}

RubberBand::~RubberBand() = default;

void RubberBand::Show(QPoint const& from, QPoint const& to)
{
    QRect const box = QRect(from, to).normalized() & View.rect();
    QRect const places[] = {{box.left(), box.top(), box.width(), Thickness},
                            {box.left(), box.bottom(), box.width(), Thickness},
                            {box.left(), box.top(), Thickness, box.height()},
                            {box.right(), box.top(), Thickness, box.height()}};
    QColor const color = to.x() >= from.x() ? Wholly : Touched;
    for (std::size_t i = 0; i < Bars.size(); ++i) {
        QWidget*& bar = Bars[i];
        if (bar == nullptr) {
            bar = new QWidget(&View);
            bar->setObjectName(QStringLiteral("rubber band"));
            bar->setAttribute(Qt::WA_NativeWindow);
            bar->setAttribute(Qt::WA_TransparentForMouseEvents);
            bar->setAutoFillBackground(true);
        }
        QPalette palette = bar->palette();
        palette.setColor(QPalette::Window, color);
        bar->setPalette(palette);
        bar->setGeometry(places[i]);
        bar->show();
    }
    Shown = true;
}

void RubberBand::Hide()
{
    Shown = false;
    for (QWidget* const bar : Bars)
        if (bar != nullptr) bar->hide();
}

} // namespace ZelVizBase
