#include "change_log.h"
#include "store.h"
#include <algorithm>

namespace HPS::scene
{

ChangeCursor::ChangeCursor()
{
    Store::instance().changes.cursors_.push_back(this);
}

ChangeCursor::~ChangeCursor()
{
    auto& log = Store::instance().changes;
    std::erase(log.cursors_, this);
    log.trim();
}

bool ChangeCursor::pending() const
{
    return lost_ || position_ < Store::instance().changes.end();
}

bool ChangeCursor::read(std::vector<ChangeMark>& marks)
{
    auto& log = Store::instance().changes;
    marks.clear();
    bool const complete = !lost_;
    if (complete)
        marks.assign(log.marks_.begin() + static_cast<std::ptrdiff_t>(position_ - log.first_),
                     log.marks_.end());
    lost_ = false;
    position_ = log.readUpTo_ = log.end();
    log.trim();
    return complete;
}

void ChangeLog::mark(SlotIndex slot, Change changes)
{
    if (recorder != nullptr) recorder(slot, changes);
    if (std::all_of(cursors_.begin(), cursors_.end(), [](auto const* cursor) { return cursor->lost_; }))
        return;
    if (slot >= last_.size()) last_.resize(std::max<std::size_t>(slot + 1, last_.size() * 2));

    // The position is checked against the mark itself, so that it may be stale or wrapped around.
    auto const offset = last_[slot] - static_cast<std::uint32_t>(first_);
    if (offset < marks_.size() && marks_[offset].slot == slot && first_ + offset >= readUpTo_) {
        marks_[offset].changes = marks_[offset].changes | changes;
        return;
    }
    if (marks_.size() == limit) {
        // Who has not read the older half starts afresh; who keeps up does not notice.
        first_ += limit / 2;
        marks_.erase(marks_.begin(), marks_.begin() + limit / 2);
        for (auto* cursor : cursors_) cursor->lost_ = cursor->lost_ || cursor->position_ < first_;
    }
    last_[slot] = static_cast<std::uint32_t>(end());
    marks_.push_back({slot, changes});
}

void ChangeLog::trim()
{
    auto oldest = end();
    for (auto const* cursor : cursors_)
        if (!cursor->lost_) oldest = std::min(oldest, cursor->position_);
    auto const read = static_cast<std::size_t>(oldest - first_);
    // Moving the rest is worth it only now and then.
    if (read < marks_.size() && read < marks_.size() / 2) return;
    marks_.erase(marks_.begin(), marks_.begin() + static_cast<std::ptrdiff_t>(read));
    first_ = oldest;
}

} // namespace HPS::scene
