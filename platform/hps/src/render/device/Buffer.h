#pragma once
#include <cstddef>
#include <span>

namespace HPS::render
{

/// A buffer of the graphics device whose contents are set anew as a whole or in part. Needs the device's
/// context to be current.
class Buffer
{
public:
    Buffer() = default;
    ~Buffer();
    Buffer(Buffer const&) = delete;
    Buffer& operator=(Buffer const&) = delete;

    /// Gives it a name, if it has none yet.
    void create();

    /// Takes on the size of `data`, in whole elements.
    template <class T> void fill(std::span<T const> data)
    {
        fillBytes(std::as_bytes(data), data.size_bytes());
    }
    /// Takes on a size of `capacity` elements, of which `data` are the first.
    template <class T> void fill(std::span<T const> data, std::size_t capacity)
    {
        fillBytes(std::as_bytes(data), capacity * sizeof(T));
    }

    /// Writes over a part of what it holds; `first` counts in elements.
    template <class T> void patch(std::size_t first, std::span<T const> data)
    {
        patchBytes(first * sizeof(T), std::as_bytes(data));
    }

    /// 0 before the first `create` or `fill`; stays the same afterwards.
    unsigned name() const { return name_; }

private:
    void fillBytes(std::span<std::byte const> data, std::size_t capacity);
    void patchBytes(std::size_t offset, std::span<std::byte const> data);

    unsigned name_ = 0;
};

} // namespace HPS::render
