#include "WindowPreferences.h"

#include <mora/Settings.h>

#include <QFileInfo>
#include <QSettings>

#include <algorithm>
#include <array>

namespace zelview
{
namespace
{

constexpr std::array ReloadWords{"ask", "silent", "never"};
constexpr std::array ThemeWords{"system", "light", "dark"};

QVariant read(char const* key)
{
    QSettings const file(QString::fromStdWString(ZELVizCore::Settings::FilePath()), QSettings::IniFormat);
    return file.value(QStringLiteral("Window/") + QLatin1String(key));
}

void write(char const* key, QVariant const& value)
{
    QSettings file(QString::fromStdWString(ZELVizCore::Settings::FilePath()), QSettings::IniFormat);
    file.setValue(QStringLiteral("Window/") + QLatin1String(key), value);
}

/// The value whose word stands in the file; the first one for any other word.
template <class Value, std::size_t Count>
Value readWord(char const* key, std::array<char const*, Count> const& words)
{
    QString const text = read(key).toString();
    auto const found =
        std::ranges::find_if(words, [&](char const* word) { return text == QLatin1String(word); });
    return found == words.end() ? Value{} : static_cast<Value>(found - words.begin());
}

} // namespace

ReloadMode WindowPreferences::reloadMode() const
{
    return readWord<ReloadMode>("Reload", ReloadWords);
}

void WindowPreferences::setReloadMode(ReloadMode mode)
{
    write("Reload", QString::fromLatin1(ReloadWords[static_cast<std::size_t>(mode)]));
}

ThemeChoice WindowPreferences::theme() const
{
    return readWord<ThemeChoice>("Theme", ThemeWords);
}

void WindowPreferences::setTheme(ThemeChoice theme)
{
    write("Theme", QString::fromLatin1(ThemeWords[static_cast<std::size_t>(theme)]));
}

MoraCore::MouseStyle const& WindowPreferences::mouseStyle() const
{
    QString const word = read("MouseStyle").toString();
    auto const found = std::ranges::find_if(MoraCore::MouseStyles, [&](MoraCore::MouseStyle const& style) {
        return word == QLatin1String(style.word);
    });
    return found == MoraCore::MouseStyles.end() ? MoraCore::MouseStyles.front() : *found;
}

void WindowPreferences::setMouseStyle(MoraCore::MouseStyle const& style)
{
    write("MouseStyle", QString::fromLatin1(style.word));
}

bool WindowPreferences::hovering() const
{
    QVariant const kept = read("Hovering");
    return !kept.isValid() || kept.toBool();
}

void WindowPreferences::setHovering(bool hovering)
{
    write("Hovering", hovering);
}

QString WindowPreferences::folder() const
{
    return read("Folder").toString();
}

QStringList WindowPreferences::recentFiles() const
{
    return read("Recent").toStringList().mid(0, RecentCount);
}

void WindowPreferences::noteOpened(QString const& path)
{
    QStringList files = recentFiles();
    files.removeAll(path);
    files.prepend(path);
    write("Recent", files.mid(0, RecentCount));
    write("Folder", QFileInfo(path).absolutePath());
}

void WindowPreferences::clearRecentFiles()
{
    write("Recent", QStringList());
}

QByteArray WindowPreferences::geometry() const
{
    return read("Geometry").toByteArray();
}

QByteArray WindowPreferences::docks() const
{
    return read("Docks").toByteArray();
}

void WindowPreferences::setLayout(QByteArray const& geometry, QByteArray const& docks)
{
    write("Geometry", geometry);
    write("Docks", docks);
}

} // namespace zelview
