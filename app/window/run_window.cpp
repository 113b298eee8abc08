#include "run_window.h"

#include "MainWindow.h"
#include "chosen_settings.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <unistd.h>

namespace zelview
{
namespace
{

/// A refusal for whoever started the program: on its standard error, and in a box where nobody would see
/// that.
ExitCode refuse(Console const& console, ExitCode code, std::string const& cause)
{
    console.fail(cause);
    bool const onScreen = QGuiApplication::platformName() != QLatin1String("offscreen");
    if (onScreen && !::isatty(STDERR_FILENO))
        QMessageBox::critical(nullptr, QStringLiteral("zelview"), QString::fromStdString(oneLine(cause)));
    return code;
}

QtMessageHandler formerHandler = nullptr;

/// Qt calls exit() when the display goes away. What that tears down may be in use by a thread that draws, so
/// the process ends here instead.
void endWithTheDisplay(QtMsgType type, QMessageLogContext const& context, QString const& text)
{
    formerHandler(type, context, text);
    static constexpr QLatin1String Ends[] = {QLatin1String("The X11 connection broke"),
                                             QLatin1String("The Wayland connection broke")};
    if (std::ranges::any_of(Ends, [&](QLatin1String words) { return text.startsWith(words); }))
        std::_Exit(static_cast<int>(ExitCode::NoGraphics));
}

} // namespace

ExitCode runWindow(Options const& options, Console const& console)
{
    // The view's window is native; its neighbours need not be.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    // Wayland hides a native window inside others that nobody paints on, as the view's is; the X server that
    // comes with its desktops does not.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    int count = 1;
    std::string name = "zelview";
    char* words[] = {name.data(), nullptr};
    formerHandler = qInstallMessageHandler(endWithTheDisplay);
    QApplication application(count, words);
    // Qt takes the user's locale, in which readers would meet numbers with commas and names they cannot
    // narrow.
    std::setlocale(LC_ALL, "C.UTF-8");
    QApplication::setApplicationName(QStringLiteral("zelview"));
    QApplication::setApplicationVersion(QStringLiteral(ZEL_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("zelview"));

    if (options.settingsFile && !QFileInfo::exists(QString::fromStdString(*options.settingsFile)))
        return refuse(console, ExitCode::UnreadableFile, *options.settingsFile + ": no such file");
    std::vector<std::wstring> const warnings =
        loadSettings(options, options.settingsFile ? fromUtf8(*options.settingsFile) : std::wstring());

    auto opened = Plugin::open();
    if (std::string const* const cause = std::get_if<std::string>(&opened))
        return refuse(console, ExitCode::NoGraphics, *cause);
    std::unique_ptr<Plugin> const plugin = std::get<std::unique_ptr<Plugin>>(std::move(opened));

    ReadGuard const guard{!options.withoutIsolation, options.timeLimit.value_or(-1)};
    MainWindow window(*plugin, {options.view, !options.settingsFile, guard});
    for (std::wstring const& warning : warnings)
        MoraCore::SessionMgr::Instance().CurrentSession().PrintMessage(warning,
                                                                       MoraCore::MessageType::Warning);
    QStringList files;
    for (std::string const& file : options.files) files << QString::fromStdString(file);
    window.open(files, Placement::NewTab); // read beside this thread, while the window comes up
    window.show();
    return QApplication::exec() == 0 ? ExitCode::Good : ExitCode::Stopped;
}

} // namespace zelview
