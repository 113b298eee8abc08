#pragma once
#include <algorithm>
#include <cstddef>
#include <thread>
#include <vector>

namespace HPS::selection
{

/// Calls f(begin, end) for ranges that together are 0 to `count`, on as many threads as the machine has. Few
/// elements are not worth a thread. Returns when all is done.
template <class F> void inParallel(std::size_t count, F const& f)
{
    constexpr std::size_t worthAThread = 1 << 15;
    std::size_t const most = std::max(1u, std::thread::hardware_concurrency());
    std::size_t const shares = std::clamp<std::size_t>(count / worthAThread, 1, most);
    std::vector<std::thread> threads;
    for (std::size_t i = 1; i < shares; ++i)
        threads.emplace_back(
            [&f, begin = count * i / shares, end = count * (i + 1) / shares] { f(begin, end); });
    f(std::size_t(0), count / shares);
    for (std::thread& thread : threads) thread.join();
}

} // namespace HPS::selection
