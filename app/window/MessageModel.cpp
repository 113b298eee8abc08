#include "MessageModel.h"

#include "DrawnIcon.h"

#include <mora/SessionMgr.h>

namespace zelview
{

using MoraCore::ASession;
using MoraCore::MessageType;

namespace
{

ASession& session()
{
    return MoraCore::SessionMgr::Instance().CurrentSession();
}

QString nameOf(MessageType type)
{
    switch (type) {
    case MessageType::Information:
        return MessageModel::tr("Information");
    case MessageType::Error:
        return MessageModel::tr("Error");
    case MessageType::Warning:
        return MessageModel::tr("Warning");
    }
    return {};
}

QIcon const& iconOf(MessageType type)
{
    static QIcon const information = drawnIcon("C 8 8 6 M 8 7 L 8 11.5 C 8 4.7 0.4", Ink::Accent);
    static QIcon const error = drawnIcon("C 8 8 6 M 5.5 5.5 L 10.5 10.5 M 10.5 5.5 L 5.5 10.5", Ink::Red);
    static QIcon const warning = drawnIcon("M 8 2 L 15 14 L 1 14 F M 8 6 L 8 10 C 8 12 0.4", Ink::Warm);
    switch (type) {
    case MessageType::Information:
        return information;
    case MessageType::Error:
        return error;
    case MessageType::Warning:
        return warning;
    }
    return information;
}

} // namespace

MessageModel::MessageModel(QObject* parent) : QAbstractTableModel(parent)
{
    session().RegisterListener(this);
}

MessageModel::~MessageModel()
{
    session().UnregisterListener(this);
}

void MessageModel::OnMessage(std::wstring const& text, MessageType type)
{
    if (Entries.size() == ASession::KeptMessages) {
        beginRemoveRows({}, 0, 0);
        Entries.pop_front();
        endRemoveRows();
    }
    int const row = static_cast<int>(Entries.size());
    beginInsertRows({}, row, row);
    Entries.push_back({QTime::currentTime(), type, QString::fromStdWString(text).trimmed()});
    endInsertRows();
    emit added(type, Entries.back().text);
}

void MessageModel::clear()
{
    beginResetModel();
    Entries.clear();
    endResetModel();
}

int MessageModel::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Entries.size());
}

int MessageModel::columnCount(QModelIndex const&) const
{
    return ColumnCount;
}

QVariant MessageModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid()) return {};
    Entry const& entry = Entries[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
    case TimeColumn:
        if (role == Qt::DisplayRole) return entry.time.toString(QStringLiteral("HH:mm:ss"));
        break;
    case KindColumn:
        if (role == Qt::DisplayRole) return nameOf(entry.type);
        if (role == Qt::DecorationRole) return iconOf(entry.type);
        break;
    case TextColumn:
        if (role == Qt::DisplayRole) return entry.text.section(QLatin1Char('\n'), 0, 0);
        if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) return entry.text;
        break;
    default:
        break;
    }
    return {};
}

QVariant MessageModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    QString const titles[] = {tr("Time"), tr("Kind"), tr("Message")};
    return section < ColumnCount ? titles[section] : QString();
}

} // namespace zelview
