#pragma once
#include "slot_list.h"
#include <cstdint>
#include <vector>

namespace HPS::scene
{

// What a write touched, as bits.
enum class Change : std::uint32_t {
    None = 0,
    Structure = 1 << 0,  // children, includes or geometry of a segment came, went or moved
    Geometry = 1 << 1,   // the shape of a geometry; the slot is the geometry's own
    Attributes = 1 << 2, // kits or locks of a segment
    Matrix = 1 << 3,
    Conditions = 1 << 4,
    Styles = 1 << 5, // the styles pushed on a segment
    Portfolio =
        1 << 6, // the portfolios or the palette of a segment, or the definitions of the portfolio itself
    Bounding = 1 << 7, // a given volume or the exclusion of a segment
    Name = 1 << 8,
    Removed = 1 << 9,    // the object is gone; the slot may be in use by another by now
    Highlight = 1 << 10, // what is highlighted on a window; the slot is the window's
};
constexpr Change operator|(Change a, Change b)
{
    return static_cast<Change>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr bool has(Change changes, Change wanted)
{
    return (static_cast<std::uint32_t>(changes) & static_cast<std::uint32_t>(wanted)) != 0;
}

struct ChangeMark {
    SlotIndex slot;
    Change changes;
};

class ChangeLog;

// Where one consumer stands in the log. It starts with "everything changed".
class ChangeCursor
{
public:
    ChangeCursor(); // of the store of the process
    ~ChangeCursor();
    ChangeCursor(ChangeCursor const&) = delete;
    ChangeCursor& operator=(ChangeCursor const&) = delete;

    // Puts the marks since the last call in `marks`, one per slot mostly. False, with no marks, if everything
    // may have changed: the consumer starts afresh.
    bool read(std::vector<ChangeMark>& marks);
    // True if read() would have something to say.
    bool pending() const;

private:
    friend class ChangeLog;
    std::uint64_t position_ = 0;
    bool lost_ = true;
};

// What changed, in order, as long as some cursor has not read it. Repeats that nobody has read join.
class ChangeLog
{
public:
    void mark(SlotIndex slot, Change changes);

    // Called at each write, before repeats join, for whoever keeps a record of them; null for nobody.
    void (*recorder)(SlotIndex slot, Change changes) = nullptr;

private:
    friend class ChangeCursor;
    static constexpr std::size_t limit = 1 << 20; // marks; who is that far behind starts afresh

    std::uint64_t end() const { return first_ + marks_.size(); }
    void trim();

    std::vector<ChangeMark> marks_;
    std::uint64_t first_ = 0;         // position of marks_[0]
    std::uint64_t readUpTo_ = 0;      // highest position of a cursor: marks from here on may still join
    std::vector<std::uint32_t> last_; // by slot: low half of the position of its last mark
    std::vector<ChangeCursor*> cursors_;
};

} // namespace HPS::scene
