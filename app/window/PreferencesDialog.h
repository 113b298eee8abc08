#pragma once

#include "WindowPreferences.h"

#include <QDialog>

#include <mora/Settings.h>

#include <functional>
#include <vector>

class QFormLayout;

namespace zelview
{

/// All settings, one editor each; what is changed holds at once.
class PreferencesDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(WindowPreferences& window, QWidget* parent = nullptr);

signals:
    /// A field of the current settings has another value.
    void settingChanged(ZELVizCore::Settings::Field const& field);
    void themeChanged(zelview::ThemeChoice theme);
    /// The style of the mouse, or whether it lights up what it points at.
    void handChanged();

private:
    QWidget* makeEditor(ZELVizCore::Settings::Field const& field);
    void addSettings(QFormLayout& form);
    void addHandChoices(QFormLayout& form, WindowPreferences& window);
    void addWindowChoices(QFormLayout& form, WindowPreferences& window);
    void restoreDefaults();

    std::vector<std::function<void()>> Readers; ///< bring the editors in line with the settings
};

} // namespace zelview
