#include "TreeSearch.h"

#include <algorithm>

namespace zelview
{

void TreeSearch::collect(TreeModel const& model)
{
    constexpr qsizetype UsualName = 24;
    Folded.clear();
    Ends.clear();
    auto const count = static_cast<TreeModel::Position>(model.nodeCount());
    Folded.reserve(count * UsualName);
    Ends.reserve(model.nodeCount());
    for (TreeModel::Position position = 0; position < count; ++position) {
        Folded += u'\n';
        Folded += model.nameOf(position).toCaseFolded();
        Ends.push_back(Folded.size());
    }
}

std::vector<TreeModel::Position> TreeSearch::find(QString const& text) const
{
    std::vector<TreeModel::Position> found;
    if (text.isEmpty() || text.contains(u'\n')) return found; // no name has a line feed
    QString const sought = text.toCaseFolded();
    for (qsizetype at = Folded.indexOf(sought); at >= 0;) {
        auto const end = std::ranges::upper_bound(Ends, at);
        auto const position = static_cast<TreeModel::Position>(end - Ends.begin());
        if (position > 0) found.push_back(position); // the root is not in sight
        at = Folded.indexOf(sought, *end);
    }
    return found;
}

} // namespace zelview
