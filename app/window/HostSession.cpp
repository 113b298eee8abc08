#include "HostSession.h"

#include <QFileDialog>
#include <QStandardPaths>

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
    QString const chosen =
        QFileDialog::getSaveFileName(&Parent, QObject::tr("Save as"), QString::fromStdWString(name));
    if (chosen.isEmpty()) return false;
    name = chosen.toStdWString();
    return true;
}

} // namespace zelview
