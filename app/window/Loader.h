#pragma once

#include "OpenDocument.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <thread>

namespace zelview
{

/// Where a file is to be shown once it is read.
enum class Placement {
    CurrentTab, ///< in place of the document there, if there is one
    NewTab,
    SameTab, ///< read again, with the camera as it is
};

struct LoadRequest {
    QString path; ///< absolute
    Placement placement = Placement::NewTab;
    QPointer<QWidget> tab = {}; ///< for SameTab; may be closed meanwhile
};

/// Reads files one after the other, each in a guarded process that a thread here waits for, so that the
/// window stays alive whatever a file does. What is
/// read is handed over on the thread of the window, which builds and shows it.
class Loader final : public QObject
{
    Q_OBJECT

public:
    /// @param plugin must outlive the loader
    Loader(Plugin const& plugin, ReadGuard const& guard, QObject* parent = nullptr);
    ~Loader() override;

    void load(LoadRequest const& request);
    /// Stops what is being read and forgets what waits.
    void cancel();
    bool isBusy() const { return Reading != nullptr; }
    bool isWaiting() const { return !Waiting.empty(); }

signals:
    void started(QString const& path);
    void progressed(double done); ///< from 0 to 1
    /// @param document whoever listens takes it; the words about a failure stand in its messages
    void finished(zelview::LoadRequest const& request, std::shared_ptr<zelview::OpenDocument> document,
                  bool read, bool cancelled);

private:
    void next();
    void collect();

    Plugin const& Source;
    ReadGuard Guard;
    std::deque<LoadRequest> Waiting;
    LoadRequest Current;
    std::shared_ptr<OpenDocument> Reading; ///< null: idle
    std::thread Worker;
    QTimer Poll;
};

} // namespace zelview
