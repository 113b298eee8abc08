#include "PictureThread.h"
#include "Device.h"
#include "SceneGate.h"
#include <exception>
#include <utility>

namespace HPS
{

using scene::SceneGate;

PictureThread& PictureThread::instance()
{
    static PictureThread thread;
    return thread;
}

PictureThread::~PictureThread()
{
    if (!thread_.joinable()) return;
    {
        std::lock_guard const lock(mutex_);
        ends_ = true;
    }
    wanted_.notify_one();
    // A process that exits in the middle of a picture may have ended the driver's own threads already.
    if (SceneGate::isClosed())
        thread_.detach();
    else
        thread_.join();
}

void PictureThread::run(std::function<void()> const& work)
{
    SceneGate::pass();
    if (!thread_.joinable()) return work();
    std::exception_ptr fault;
    post([&] {
        try {
            work();
        } catch (...) {
            fault = std::current_exception();
        }
    });
    SceneGate::pass();
    if (fault) std::rethrow_exception(fault);
}

void PictureThread::post(std::function<void()> work)
{
    SceneGate::pass();
    if (!thread_.joinable()) {
        render::Device::releaseCurrent(); // a context is current on one thread at most
        thread_ = std::thread([this] { loop(); });
    }
    SceneGate::close();
    {
        std::lock_guard const lock(mutex_);
        work_ = std::move(work);
    }
    wanted_.notify_one();
}

void PictureThread::loop()
{
    for (;;) {
        std::unique_lock lock(mutex_);
        wanted_.wait(lock, [this] { return ends_ || work_; });
        if (!work_) return;
        std::function<void()> const work = std::exchange(work_, nullptr);
        lock.unlock();
        work();
        SceneGate::open();
    }
}

} // namespace HPS
