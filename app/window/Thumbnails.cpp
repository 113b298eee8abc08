#include "Thumbnails.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>

namespace zelview::Thumbnails
{
namespace
{

QString folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/thumbnails/large");
}

QString addressOf(QString const& path)
{
    return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
}

/// By the rules that the desktops agreed on: the digest of the file's address.
QString fileOf(QString const& path)
{
    QByteArray const digest = QCryptographicHash::hash(addressOf(path).toUtf8(), QCryptographicHash::Md5);
    return folder() + QLatin1Char('/') + QString::fromLatin1(digest.toHex()) + QStringLiteral(".png");
}

QString timeOf(QString const& path)
{
    return QString::number(QFileInfo(path).lastModified().toSecsSinceEpoch());
}

QString const AddressKey = QStringLiteral("Thumb::URI");
QString const TimeKey = QStringLiteral("Thumb::MTime");

} // namespace

void store(QString const& path, QImage const& picture)
{
    if (picture.isNull() || !QDir().mkpath(folder())) return;
    QImage small = picture.scaled(Side, Side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    small.setText(AddressKey, addressOf(path));
    small.setText(TimeKey, timeOf(path));
    QSaveFile file(fileOf(path));
    if (file.open(QIODevice::WriteOnly) && small.save(&file, "PNG")) {
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        file.commit();
    }
}

QImage find(QString const& path)
{
    QImage const image(fileOf(path));
    return image.text(TimeKey) == timeOf(path) ? image : QImage();
}

} // namespace zelview::Thumbnails
