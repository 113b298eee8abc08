#include "PickScene.h"

namespace HPS::selection
{

using namespace scene;

PickScene& PickScene::instance()
{
    static auto& scene = *new PickScene; // as the store, never destroyed
    return scene;
}

void PickScene::refresh()
{
    if (!cursor_.read(marks_)) {
        index.clear();
        shapes.dropAll();
        texts.dropAll();
    }
    index.apply(marks_);
    bool redefined = definitions_ != store().definitionStamp;
    for (ChangeMark const& mark : marks_) {
        redefined = redefined || has(mark.changes, Change::Portfolio);
        if (!has(mark.changes, Change::Geometry | Change::Removed)) continue;
        shapes.drop(mark.slot);
        texts.drop(mark.slot);
    }
    definitions_ = store().definitionStamp;
    constexpr std::size_t manyStates = 1 << 15;
    bool const crowded = fold.stateCount() > manyStates;
    if (redefined || crowded) looks.clear();
    if (crowded) fold.trim();
}

} // namespace HPS::selection
