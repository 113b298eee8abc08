// The preferences: one editor for each setting, at work at once; and what becomes of a damaged file.

#include "PreferencesDialog.h"
#include "test_application.h"

#include <QCheckBox>
#include <QFile>
#include <QSignalSpy>
#include <QSpinBox>

#include <gtest/gtest.h>

using namespace zelview;
using ZELVizCore::Settings;

TEST(Preferences, everySettingHasAnEditorThatWorksAtOnce)
{
    needApplication();
    Settings::Current() = Settings();
    WindowPreferences window;
    PreferencesDialog dialog(window);
    for (Settings::Field const& field : Settings::Fields()) {
        auto* const editor = dialog.findChild<QWidget*>(QString::fromLatin1(field.name));
        ASSERT_TRUE(editor) << field.name;
        EXPECT_FALSE(editor->accessibleName().isEmpty());
        QSignalSpy const changed(&dialog, &PreferencesDialog::settingChanged);
        std::string const before = Settings::Current().GetText(field);
        if (auto* const box = qobject_cast<QCheckBox*>(editor))
            box->toggle();
        else if (auto* const number = qobject_cast<QSpinBox*>(editor))
            number->setValue(number->value() + 1);
        else
            continue; // a colour is asked for in a dialog of its own
        EXPECT_EQ(changed.count(), 1) << field.name;
        EXPECT_NE(Settings::Current().GetText(field), before) << field.name;
    }
    Settings::Current() = Settings();
}

TEST(Preferences, aDamagedFileIsKeptAsideAndTheRestHolds)
{
    needApplication();
    QString const path = QString::fromStdWString(Settings::FilePath());
    ASSERT_FALSE(path.isEmpty());
    WindowPreferences().setTheme(ThemeChoice::Dark);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("\nNumProcessors=lots\nthis is no setting\n");
    file.close();
    Settings settings;
    std::vector<std::wstring> const warnings = settings.Load();
    EXPECT_GE(warnings.size(), 2U);
    EXPECT_EQ(settings, Settings());
    EXPECT_TRUE(QFile::exists(path + ".damaged"));
    WindowPreferences().setReloadMode(ReloadMode::Never);
    EXPECT_EQ(WindowPreferences().reloadMode(), ReloadMode::Never);
    QFile::remove(path);
}
