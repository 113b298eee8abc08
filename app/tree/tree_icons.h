#pragma once

#include <mora/TreeItemStyles.h>

#include <QIcon>
#include <QString>

namespace zelview
{

/// The icon of a node; made once. A style that nobody draws gets that of a plain node.
QIcon const& treeIcon(MoraCore::TreeItemStyles style);

/// What such a node is, for those who cannot see the icon: "Assembly".
QString treeStyleName(MoraCore::TreeItemStyles style);

} // namespace zelview
