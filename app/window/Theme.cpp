#include "Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace zelview
{
namespace
{

// The desktop's wish as every desktop of today publishes it.
QString const Service = QStringLiteral("org.freedesktop.portal.Desktop");
QString const ObjectPath = QStringLiteral("/org/freedesktop/portal/desktop");
QString const Interface = QStringLiteral("org.freedesktop.portal.Settings");
QString const Group = QStringLiteral("org.freedesktop.appearance");
QString const Key = QStringLiteral("color-scheme");
constexpr uint PrefersDark = 1;

QPalette darkPalette()
{
    QColor const ground(45, 47, 51), field(32, 33, 36), text(232, 234, 237), faint(140, 144, 150);
    QColor const accent(76, 139, 245);
    QPalette palette(ground);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, field);
    palette.setColor(QPalette::AlternateBase, ground);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, field);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent.lighter(130));
    for (QPalette::ColorRole const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

} // namespace

Theme::Theme(ThemeChoice choice, QObject* parent)
    : QObject(parent),
      Choice(choice),
      DesktopIsDark(QGuiApplication::palette().color(QPalette::Window).lightness() < 128)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    apply();
    askDesktop();
}

void Theme::askDesktop()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(Service, ObjectPath, Interface, QStringLiteral("SettingChanged"), this,
                SLOT(desktopChanged(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(Service, ObjectPath, Interface, QStringLiteral("Read"));
    question << Group << Key;
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        QDBusPendingReply<QDBusVariant> const reply = *answer;
        if (reply.isValid()) desktopChanged(Group, Key, reply.value());
        answer->deleteLater();
    });
}

void Theme::desktopChanged(QString const& group, QString const& key, QDBusVariant const& value)
{
    if (group != Group || key != Key) return;
    QVariant inner = value.variant();
    // One answer is wrapped once more than the other.
    if (inner.canConvert<QDBusVariant>()) inner = inner.value<QDBusVariant>().variant();
    DesktopIsDark = inner.toUInt() == PrefersDark;
    apply();
}

void Theme::choose(ThemeChoice choice)
{
    Choice = choice;
    apply();
}

void Theme::apply()
{
    Dark = Choice == ThemeChoice::Dark || (Choice == ThemeChoice::System && DesktopIsDark);
    QApplication::setPalette(Dark ? darkPalette() : QApplication::style()->standardPalette());
}

} // namespace zelview
