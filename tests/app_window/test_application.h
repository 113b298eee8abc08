#pragma once

#include <QApplication>
#include <QTemporaryDir>

/// Makes the one application of this program, on no screen and with a home of its own.
inline void needApplication()
{
    static QTemporaryDir const home;
    [[maybe_unused]] static bool const prepared = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("ZELVIEW_LIBRARY_PATH", ZEL_STAND_IN_FOLDER);
        for (char const* variable :
             {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "HOME"})
            qputenv(variable, home.path().toUtf8());
        return true;
    }();
    static int count = 1;
    static char name[] = "test_app_window";
    static char* words[] = {name, nullptr};
    // Stays: at exit Qt's own libraries may be gone before it.
    [[maybe_unused]] static auto const* const application = new QApplication(count, words);
}
