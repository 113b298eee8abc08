#pragma once
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace HPS
{

/// Where pictures are made: the one thread that the graphics device is current on. Until a picture is wanted
/// beside the caller that is the caller's own.
class PictureThread
{
public:
    static PictureThread& instance();
    ~PictureThread();

    /// Has the work done and waits for its end.
    void run(std::function<void()> const& work);
    /// Has the work done beside the caller, who is kept out of the scene meanwhile (SceneGate). The work must
    /// not throw.
    void post(std::function<void()> work);

private:
    void loop();

    std::mutex mutex_;
    std::condition_variable wanted_;
    std::function<void()> work_; ///< at most one: who posts passes the gate first
    bool ends_ = false;
    std::thread thread_; ///< started by the first post
};

} // namespace HPS
