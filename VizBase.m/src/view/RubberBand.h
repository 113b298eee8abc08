#pragma once

#include <QRect>
#include <array>
#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace ZelVizBase
{

/// A frame over a view: four bars, windows of their own, so that nothing of the scene is drawn for it.
class RubberBand
{
public:
    /// `view` is not owned and must outlive this.
    explicit RubberBand(QWidget& view);
    ~RubberBand();

    /// Between two corners, in the widget's units. What lies wholly inside counts where the second one is to
    /// the right, what is touched where it is to the left; the colours of the bars tell them apart.
    void Show(QPoint const& from, QPoint const& to);
    void Hide();
    bool IsShown() const { return Shown; }

private:
    QWidget& View;
    std::array<QWidget*, 4> Bars{}; ///< owned by the view; null before the first use
    bool Shown = false;
};

} // namespace ZelVizBase
