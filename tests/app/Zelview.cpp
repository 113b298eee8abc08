#include "Zelview.h"

#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

QProcessEnvironment withoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (char const* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(variable);
    return environment;
}

Outcome runZelview(QStringList const& arguments, QStringList const& surroundings)
{
    QProcess process;
    QProcessEnvironment environment = withoutDisplay();
    for (QString const& setting : surroundings)
        environment.insert(setting.section(QLatin1Char('='), 0, 0), setting.section(QLatin1Char('='), 1));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZEL_BINARY_DIR "/bin/zelview"), arguments);
    bool const ended = process.waitForFinished(120'000) && process.exitStatus() == QProcess::NormalExit;
    if (!ended) process.kill();
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

QString sharedModel(QString const& name)
{
    QFileInfo const file(QStringLiteral(ZEL_SOURCE_DIR "/../shared/models/") + name);
    return file.exists() ? file.canonicalFilePath() : QString();
}

QString sample(QString const& name)
{
    return QStringLiteral(ZEL_SOURCE_DIR "/samples/") + name;
}
