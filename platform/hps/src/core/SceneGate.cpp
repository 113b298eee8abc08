#include "SceneGate.h"

namespace HPS::scene
{
namespace
{

thread_local bool ownsScene = false;

} // namespace

std::atomic<bool> SceneGate::closed_ = false;

void SceneGate::close() noexcept
{
    ownsScene = true;
    closed_.store(true, std::memory_order_release);
}

void SceneGate::open() noexcept
{
    closed_.store(false, std::memory_order_release);
    closed_.notify_all();
}

void SceneGate::wait() noexcept
{
    if (ownsScene) closed_.wait(true, std::memory_order_acquire);
}

} // namespace HPS::scene
