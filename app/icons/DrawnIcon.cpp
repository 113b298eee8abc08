#include "DrawnIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <charconv>
#include <optional>
#include <string_view>

namespace zelview
{
namespace
{

constexpr double FieldSide = 16;
constexpr double StrokeWidth = 1.2; ///< in units of the field

struct Drawing {
    QPainterPath strokes;
    QPainterPath filled;
};

/// Reads a drawing word by word; our own tables are its only source.
class DrawingReader
{
public:
    explicit DrawingReader(std::string_view words) : Rest(words) {}

    Drawing read()
    {
        Drawing drawing;
        QPainterPath part;
        while (std::optional<char> const letter = nextLetter()) {
            switch (*letter) {
            case 'M':
                drawing.strokes.addPath(part);
                part = QPainterPath(nextPoint());
                break;
            case 'L':
                part.lineTo(nextPoint());
                break;
            case 'C': {
                QPointF const center = nextPoint();
                double const radius = nextNumber();
                drawing.strokes.addEllipse(center, radius, radius);
                break;
            }
            case 'Z':
                part.closeSubpath();
                break;
            case 'F':
                part.closeSubpath();
                drawing.filled.addPath(part);
                break;
            default:
                Q_ASSERT_X(false, "drawnIcon", "unknown letter in a drawing");
            }
        }
        drawing.strokes.addPath(part);
        return drawing;
    }

private:
    void skipBlanks() { Rest.remove_prefix(std::min(Rest.find_first_not_of(' '), Rest.size())); }

    std::optional<char> nextLetter()
    {
        skipBlanks();
        if (Rest.empty()) return std::nullopt;
        char const letter = Rest.front();
        Rest.remove_prefix(1);
        return letter;
    }

    double nextNumber()
    {
        skipBlanks();
        double number = 0;
        auto const [end, error] = std::from_chars(Rest.data(), Rest.data() + Rest.size(), number);
        Q_ASSERT_X(error == std::errc(), "drawnIcon", "a number is missing in a drawing");
        Rest.remove_prefix(static_cast<std::size_t>(end - Rest.data()));
        return number;
    }

    QPointF nextPoint()
    {
        double const x = nextNumber();
        return {x, nextNumber()};
    }

    std::string_view Rest;
};

QColor colorOf(Ink ink, QPalette const& palette)
{
    bool const dark = palette.color(QPalette::Window).lightness() < 128;
    switch (ink) {
    case Ink::Text:
        return palette.color(QPalette::WindowText);
    case Ink::Accent:
        return dark ? QColor(122, 176, 255) : QColor(28, 92, 178);
    case Ink::Warm:
        return dark ? QColor(255, 190, 105) : QColor(176, 98, 0);
    case Ink::Cool:
        return dark ? QColor(120, 214, 214) : QColor(0, 116, 122);
    case Ink::Green:
        return dark ? QColor(140, 214, 130) : QColor(40, 124, 40);
    case Ink::Red:
        return dark ? QColor(255, 135, 125) : QColor(186, 36, 30);
    }
    return {};
}

class DrawnIconEngine final : public QIconEngine
{
public:
    DrawnIconEngine(std::string drawing, Ink ink) : Words(std::move(drawing)), Color(ink) {}

    void paint(QPainter* painter, QRect const& rect, QIcon::Mode mode, QIcon::State) override
    {
        Drawing const drawing = DrawingReader(Words).read();
        double const scale = std::min(rect.width(), rect.height()) / FieldSide;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.x() + (rect.width() - FieldSide * scale) / 2,
                           rect.y() + (rect.height() - FieldSide * scale) / 2);
        painter->scale(scale, scale);
        if (mode == QIcon::Disabled) painter->setOpacity(0.4);
        QColor color = colorOf(Color, QGuiApplication::palette());
        painter->setPen(QPen(color, StrokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(drawing.strokes);
        color.setAlphaF(0.35F);
        painter->fillPath(drawing.filled, color);
        painter->restore();
    }

    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawnIconEngine(*this); }

private:
    std::string Words;
    Ink Color;
};

} // namespace

QIcon drawnIcon(std::string drawing, Ink ink)
{
    return QIcon(new DrawnIconEngine(std::move(drawing), ink));
}

} // namespace zelview
