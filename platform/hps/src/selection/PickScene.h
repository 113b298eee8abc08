#pragma once
#include "PickLook.h"
#include "PickShapes.h"
#include "SegmentIndex.h"
#include "TextOutlines.h"

namespace HPS::selection
{

/// All that selections keep between each other: one for the process, shared by all windows, made by those
/// who select and nobody else. Follows the change marks.
class PickScene
{
public:
    static PickScene& instance();

    /// Call it once before anything is asked.
    void refresh();

    SegmentIndex index;
    PickShapes shapes;
    PickLooks looks;
    TextOutlines texts;
    scene::NetFold fold;

private:
    PickScene() = default;
    scene::ChangeCursor cursor_;
    std::vector<scene::ChangeMark> marks_; ///< work space
    std::uint32_t definitions_ = 0;        ///< stamp that the looks were made under
};

} // namespace HPS::selection
