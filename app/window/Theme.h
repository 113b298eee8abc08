#pragma once

#include "WindowPreferences.h"

#include <QDBusVariant>
#include <QObject>

namespace zelview
{

/// Light or dark colours for the whole program: as the user chose, or as the desktop says, also when it
/// changes its mind.
class Theme final : public QObject
{
    Q_OBJECT

public:
    explicit Theme(ThemeChoice choice, QObject* parent = nullptr);

    void choose(ThemeChoice choice);
    bool isDark() const { return Dark; }

private slots:
    void desktopChanged(QString const& group, QString const& key, QDBusVariant const& value);

private:
    void askDesktop();
    void apply();

    ThemeChoice Choice;
    bool DesktopIsDark;
    bool Dark = false;
};

} // namespace zelview
