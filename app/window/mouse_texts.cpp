#include "mouse_texts.h"

#include <QObject>

namespace zelview
{

using MoraCore::MouseGesture;

QString gestureText(MouseGesture const& gesture)
{
    QString const button = [&] {
        switch (gesture.button) {
        case MouseGesture::Button::Left:
            return QObject::tr("left drag");
        case MouseGesture::Button::Middle:
            return QObject::tr("middle drag");
        case MouseGesture::Button::Right:
            return QObject::tr("right drag");
        }
        return QString();
    }();
    QString const keys = (gesture.control ? QObject::tr("Ctrl+") : QString()) +
                         (gesture.shift ? QObject::tr("Shift+") : QString());
    return keys.isEmpty() ? button.left(1).toUpper() + button.mid(1) : keys + button;
}

std::vector<std::pair<QString, QString>> cameraGestures(MoraCore::MouseStyle const& style)
{
    return {{QObject::tr("Orbit"), gestureText(style.orbit)},
            {QObject::tr("Pan"), gestureText(style.pan)},
            {QObject::tr("Zoom"), gestureText(style.zoom)}};
}

std::vector<std::pair<QString, QString>> commonGestures()
{
    return {{QObject::tr("Zoom at the pointer"), QObject::tr("Wheel")},
            {QObject::tr("Zoom in small steps"), QObject::tr("Ctrl+wheel")},
            {QObject::tr("Select"), QObject::tr("Left click")},
            {QObject::tr("Add to the selection, or take away"), QObject::tr("Ctrl+left click")},
            {QObject::tr("Select all parts inside a box"), QObject::tr("Shift+left drag to the right")},
            {QObject::tr("Select all parts that a box touches"), QObject::tr("Shift+left drag to the left")},
            {QObject::tr("Add the parts of a box"), QObject::tr("Ctrl+Shift+left drag")},
            {QObject::tr("Menu"), QObject::tr("Right click")}};
}

QStringList mouseTexts(MoraCore::MouseStyle const& style)
{
    QStringList lines;
    for (auto const& [what, gesture] : cameraGestures(style))
        lines << QStringLiteral("%1: %2").arg(what, gesture);
    return lines;
}

} // namespace zelview
