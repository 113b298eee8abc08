#include "HostSession.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include <mora/IDocumentEvo.h>

namespace zelview
{

HostSession::HostSession(QWidget& parent) : Parent(parent)
{
    Install(this);
}

HostSession::~HostSession()
{
    Install(nullptr);
}

std::wstring HostSession::MaterialLibraryDirectory()
{
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation, QStringLiteral("zelview/materials"),
                                  QStandardPaths::LocateDirectory)
        .toStdWString();
}

bool HostSession::AskFileName(std::wstring& name)
{
    QString const part = QStringLiteral(".XKRM");
    QStringList filters{QObject::tr("Part by itself (*%1)").arg(part)};
    if (MoraCore::IDocumentEvo const* const document = CurrentSession().DocumentEvo())
        for (auto const& [extension, kind] : document->ValidExportExtensions())
            filters << QStringLiteral("%1 (*.%2)")
                           .arg(QString::fromStdWString(kind), QString::fromStdWString(extension));
    QString chosen = QFileDialog::getSaveFileName(
        &Parent, QObject::tr("Save as"), QString::fromStdWString(name), filters.join(QStringLiteral(";;")));
    if (chosen.isEmpty()) return false;
    if (QFileInfo(chosen).suffix().isEmpty()) chosen += part;
    name = chosen.toStdWString();
    return true;
}

} // namespace zelview
