#pragma once

#include "TreeModel.h"

namespace zelview
{

/// Finds nodes by a part of their name, without regard to case. The names are folded once, into one text, so
/// that a search is one run over it.
class TreeSearch
{
public:
    /// Forgets the names; the next search collects those of the model.
    void clear();

    /// Positions in the order of the tree; none for an empty text.
    std::vector<TreeModel::Position> find(TreeModel const& model, QString const& text);

private:
    void collect(TreeModel const& model);

    QString Folded;              ///< all names, each behind a line feed
    std::vector<qsizetype> Ends; ///< of each name in Folded
};

} // namespace zelview
