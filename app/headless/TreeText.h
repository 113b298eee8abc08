#pragma once

#include <mora/TreeBuilder.h>

#include <string>

namespace zelview
{

/// The stored tree as text, one line a node, UTF-8. The host's own root node is left out.
/// A node that is not shown though its name does not say so, as below a suppressed assembly, is marked
/// "(off)".
std::string treeText(MoraCore::TreeBuilder const& tree);

} // namespace zelview
