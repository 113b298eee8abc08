#pragma once

#include <QByteArray>
#include <QStringList>

#include <mora/mouse_styles.h>

namespace zelview
{

/// What happens when a file that is shown changes on the disk.
enum class ReloadMode { Ask, Silent, Never };

enum class ThemeChoice { System, Light, Dark };

/// What the window remembers for itself, in the file of the user's settings beside theirs.
class WindowPreferences
{
public:
    static constexpr int RecentCount = 10;

    ReloadMode reloadMode() const;
    void setReloadMode(ReloadMode mode);
    ThemeChoice theme() const;
    void setTheme(ThemeChoice theme);
    /// One of MoraCore::MouseStyles.
    MoraCore::MouseStyle const& mouseStyle() const;
    void setMouseStyle(MoraCore::MouseStyle const& style);
    /// What lies under the mouse lights up.
    bool hovering() const;
    void setHovering(bool hovering);
    /// Folder of the last file opened; empty before the first.
    QString folder() const;
    /// Files opened last, the latest first.
    QStringList recentFiles() const;
    void noteOpened(QString const& path);
    void clearRecentFiles();
    QByteArray geometry() const;
    QByteArray docks() const;
    void setLayout(QByteArray const& geometry, QByteArray const& docks);
};

} // namespace zelview
