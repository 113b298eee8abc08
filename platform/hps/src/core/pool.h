#pragma once
#include "record.h"
#include <array>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace HPS::scene
{

// Room for values of one type in blocks that never move. Destroying the pool does not destroy what is still
// in it.
template <class R> class Pool
{
public:
    R* acquire()
    {
        if (!free_) grow();
        Cell* const cell = free_;
        free_ = cell->next;
        return new (&cell->storage) R();
    }
    void release(R* value)
    {
        value->~R();
        auto* const cell = reinterpret_cast<Cell*>(value);
        cell->next = free_;
        free_ = cell;
    }

private:
    static constexpr std::size_t blockSize = 256;
    union Cell {
        Cell* next;
        alignas(R) std::byte storage[sizeof(R)];
    };
    void grow()
    {
        blocks_.push_back(std::make_unique<std::array<Cell, blockSize>>());
        for (auto& cell : *blocks_.back()) {
            cell.next = free_;
            free_ = &cell;
        }
    }

    std::vector<std::unique_ptr<std::array<Cell, blockSize>>> blocks_;
    Cell* free_ = nullptr;
};

// Where records of one type live.
class RecordPoolBase
{
public:
    virtual ~RecordPoolBase() = default;
    virtual void release(Record& record) = 0;
};
template <class R> class RecordPool final : public RecordPoolBase
{
public:
    R& acquire() { return *pool_.acquire(); }
    void release(Record& record) override { pool_.release(static_cast<R*>(&record)); }

private:
    Pool<R> pool_;
};

// Values by number, in half the bytes of a pointer and none of the allocator's. Number 0 stands for nothing.
template <class T> class NumberedPool
{
public:
    using Number = std::uint32_t;
    // Never destroyed: for what dies after main().
    static NumberedPool& instance()
    {
        static NumberedPool& pool = *new NumberedPool;
        return pool;
    }
    Number acquire(T const& value)
    {
        if (free_.empty()) grow();
        auto const number = free_.back();
        free_.pop_back();
        (*this)[number] = value;
        return number;
    }
    void release(Number number) { free_.push_back(number); }
    T& operator[](Number number) { return (*blocks_[number / blockSize])[number % blockSize]; }

private:
    static_assert(std::is_trivially_destructible_v<T>);
    static constexpr std::size_t blockSize = 256;
    void grow()
    {
        auto const first = static_cast<Number>(blocks_.size() * blockSize);
        blocks_.push_back(std::make_unique<std::array<T, blockSize>>());
        for (auto number = first + blockSize; number-- > first + (first == 0 ? 1 : 0);)
            free_.push_back(static_cast<Number>(number));
    }

    std::vector<std::unique_ptr<std::array<T, blockSize>>> blocks_;
    std::vector<Number> free_;
};

// Owns a value of the pool of its type, or none.
template <class T> class Pooled
{
public:
    Pooled() = default;
    Pooled(Pooled&& other) noexcept : number_(std::exchange(other.number_, 0)) {}
    Pooled& operator=(Pooled&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Pooled() { reset(); }

    explicit operator bool() const { return number_ != 0; }
    T const& operator*() const { return pool()[number_]; }
    T const* operator->() const { return &**this; }
    Pooled& operator=(T const& value)
    {
        if (number_ != 0)
            pool()[number_] = value;
        else
            number_ = pool().acquire(value);
        return *this;
    }
    void reset()
    {
        if (number_ != 0) pool().release(std::exchange(number_, 0));
    }

private:
    static NumberedPool<T>& pool() { return NumberedPool<T>::instance(); }
    typename NumberedPool<T>::Number number_ = 0;
};

} // namespace HPS::scene
