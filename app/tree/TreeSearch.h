#pragma once

#include "TreeModel.h"

namespace zelview
{

/// Finds nodes by a part of their name, without regard to case. The names are folded once, into one text, so
/// that a search is one run over it.
class TreeSearch
{
public:
    /// Takes the names that the model has now.
    void collect(TreeModel const& model);

    /// Positions in the order of the tree; none for an empty text.
    std::vector<TreeModel::Position> find(QString const& text) const;

private:
    QString Folded;              ///< all names, each behind a line feed
    std::vector<qsizetype> Ends; ///< of each name in Folded
};

} // namespace zelview
