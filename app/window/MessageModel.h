#pragma once

#include <QAbstractTableModel>
#include <QDateTime>

#include <mora/ASession.h>

#include <deque>

namespace zelview
{

/// The session's messages as they come in, with the time and the kind of each; the oldest go first.
class MessageModel final : public QAbstractTableModel, private MoraCore::IMessageListener
{
    Q_OBJECT

public:
    enum Column { TimeColumn, KindColumn, TextColumn, ColumnCount };

    /// Listens to the session as long as it lives.
    explicit MessageModel(QObject* parent = nullptr);
    ~MessageModel() override;

    void clear();

    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    void added(MoraCore::MessageType type, QString const& text);

private:
    struct Entry {
        QTime time;
        MoraCore::MessageType type;
        QString text;
    };

    void OnMessage(std::wstring const& text, MoraCore::MessageType type) override;

    std::deque<Entry> Entries;
};

} // namespace zelview
