#pragma once
#include <atomic>

namespace HPS::scene
{

/// Keeps the thread that changes the scene out of it while another thread makes a picture of it. Whoever asks
/// for a record of the database or of a sprocket passes here, so that nothing else has to know of threads.
///
/// There is one scene, hence one gate. It is closed by the thread that owns the scene and opened by the one
/// that was handed it; threads that help either of them are never held up.
class SceneGate
{
public:
    /// On the thread that has closed the gate: waits until it is open.
    static void pass() noexcept
    {
        if (closed_.load(std::memory_order_acquire)) wait();
    }
    static bool isClosed() noexcept { return closed_.load(std::memory_order_acquire); }
    static void close() noexcept;
    static void open() noexcept;

private:
    static void wait() noexcept;
    static std::atomic<bool> closed_;
};

} // namespace HPS::scene
