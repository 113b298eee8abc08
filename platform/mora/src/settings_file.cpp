#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>
#include <mora/Settings.h>

namespace ZELVizCore
{

namespace
{

/// A file of ours is about 1 KiB: one beyond this is something else, and isn't handed to the parser.
constexpr qint64 largestFile = 1 << 20;

QString pathOrDefault(std::wstring const& path)
{
    return QString::fromStdWString(path.empty() ? Settings::FilePath() : path);
}

std::wstring keepAside(QString const& path)
{
    QString const aside = path + QStringLiteral(".damaged");
    QFile::remove(aside);
    return (QFile::copy(path, aside)
                ? QStringLiteral("The settings file as found is kept as \"%1\".").arg(aside)
                : QStringLiteral("The settings file could not be copied to \"%1\".").arg(aside))
        .toStdWString();
}

enum class Condition {
    Sound,
    Damaged,    ///< some lines are not ours
    Unreadable, ///< not a text at all
};

/// The parser takes nearly anything for a file of settings, so what it would pass over is looked for here.
Condition examine(QString const& path)
{
    QFile file(path);
    if (file.size() > largestFile || !file.open(QIODevice::ReadOnly)) return Condition::Unreadable;
    QByteArray const content = file.readAll();
    if (content.contains('\0')) return Condition::Unreadable;
    auto const lines = content.split('\n');
    bool const sound = std::all_of(lines.begin(), lines.end(), [](QByteArray const& line) {
        QByteArray const text = line.trimmed();
        bool const heading = text.startsWith('[') && text.endsWith(']');
        return text.isEmpty() || heading || text.startsWith(';') || text.indexOf('=') > 0;
    });
    return sound ? Condition::Sound : Condition::Damaged;
}

} // namespace

std::wstring Settings::FilePath()
{
    QString const folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return (folder + QStringLiteral("/zelview/settings.ini")).toStdWString();
}

std::vector<std::wstring> Settings::Load(std::wstring const& path)
{
    *this = Settings();
    QString const name = pathOrDefault(path);
    if (!QFileInfo::exists(name)) return {};
    std::vector<std::wstring> warnings;
    auto const warn = [&](QString const& text) { warnings.push_back(text.toStdWString()); };

    Condition const condition = examine(name);
    if (condition == Condition::Unreadable) {
        warn(QStringLiteral("The settings file \"%1\" can't be read: the defaults are used.").arg(name));
        warnings.push_back(keepAside(name));
        return warnings;
    }
    QSettings file(name, QSettings::IniFormat);
    if (condition == Condition::Damaged || file.status() != QSettings::NoError)
        warn(QStringLiteral("The settings file \"%1\" is damaged: what can't be read takes its default.")
                 .arg(name));
    for (Field const& field : Fields()) {
        QString const key = QString::fromLatin1(field.name);
        if (!file.contains(key)) continue;
        QString const text = file.value(key).toString();
        if (!SetText(field, text.toStdString()))
            warn(QStringLiteral("The setting %1 can't be \"%2\": it takes %3. The default %4 is used.")
                     .arg(key, text.left(80), QString::fromStdString(ExpectedText(field)),
                          QString::fromStdString(Default().GetText(field))));
    }
    if (!warnings.empty()) warnings.push_back(keepAside(name));
    return warnings;
}

std::wstring Settings::Save(std::wstring const& path) const
{
    QString const name = pathOrDefault(path);
    QString const failure = QStringLiteral("The settings can't be written to \"%1\".").arg(name);
    if (!QDir().mkpath(QFileInfo(name).absolutePath())) return failure.toStdWString();
    // Damaged lines would be carried along as entries.
    if (QFileInfo::exists(name) && examine(name) != Condition::Sound && !QFile::remove(name))
        return failure.toStdWString();
    QSettings file(name, QSettings::IniFormat);
    for (Field const& field : Fields())
        file.setValue(QString::fromLatin1(field.name), QString::fromStdString(GetText(field)));
    file.sync();
    return file.status() == QSettings::NoError ? std::wstring() : failure.toStdWString();
}

} // namespace ZELVizCore
