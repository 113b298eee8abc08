#pragma once
#include "record.h"
#include <array>
#include <memory>
#include <new>
#include <vector>

namespace HPS::scene
{

// Where records of one type live.
class PoolBase
{
public:
    virtual ~PoolBase() = default;
    virtual void release(Record* record) = 0;
};

// Room for records in blocks that never move. Destroying the pool does not destroy what is still in it.
template <class R> class Pool final : public PoolBase
{
public:
    R* acquire()
    {
        if (!free_) grow();
        Cell* const cell = free_;
        free_ = cell->next;
        return new (&cell->storage) R();
    }
    void release(Record* record) override
    {
        auto* const typed = static_cast<R*>(record);
        typed->~R();
        auto* const cell = reinterpret_cast<Cell*>(typed);
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

} // namespace HPS::scene
