#include "Loader.h"

#include <atomic>
#include <exception>

namespace zelview
{
namespace
{

/// What reader and window tell each other. A reader's progress function carries no address, so it stands once
/// for the process; that is enough, as one file is read at a time.
struct Exchange {
    std::atomic<double> done = 0;
    std::atomic<bool> cancel = false;
    std::atomic<bool> good = false;
};

Exchange& exchange()
{
    static Exchange only;
    return only;
}

void takeProgress(double done, bool& cancel)
{
    exchange().done = done;
    cancel = exchange().cancel;
}

constexpr int PollMilliseconds = 30;

} // namespace

Loader::Loader(Plugin const& plugin, ReadGuard const& guard, QObject* parent)
    : QObject(parent), Source(plugin), Guard(guard)
{
    Poll.setInterval(PollMilliseconds);
    connect(&Poll, &QTimer::timeout, this, [this] { emit progressed(exchange().done); });
}

Loader::~Loader()
{
    exchange().cancel = true;
    if (Worker.joinable()) Worker.join();
}

void Loader::load(LoadRequest const& request)
{
    Waiting.push_back(request);
    if (!isBusy()) next();
}

void Loader::cancel()
{
    Waiting.clear();
    exchange().cancel = true;
}

void Loader::next()
{
    if (Waiting.empty()) return;
    Current = Waiting.front();
    Waiting.pop_front();
    Reading = std::make_shared<OpenDocument>(Source, Current.path);
    exchange().done = 0;
    exchange().cancel = false;
    emit started(Current.path);
    Worker = std::thread([this, &source = Source, &document = *Reading->document,
                          path = Current.path.toStdWString(), guard = Guard] {
        try {
            exchange().good = source.readAhead(document, path, guard, takeProgress);
        } catch (std::exception const&) {
            exchange().good = false; // a reader tells its own faults by its result; this one had no memory
        }
        QMetaObject::invokeMethod(this, &Loader::collect, Qt::QueuedConnection);
    });
    Poll.start();
}

void Loader::collect()
{
    Poll.stop();
    Worker.join();
    std::shared_ptr<OpenDocument> const read = std::exchange(Reading, nullptr);
    emit finished(Current, read, exchange().good, exchange().cancel);
    if (!isBusy()) next();
}

} // namespace zelview
