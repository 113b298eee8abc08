#include "TreeText.h"

#include "Console.h"

namespace zelview
{
namespace
{

using MoraCore::TreeBuilder;

bool saysHidden(std::wstring const& name)
{
    return name.ends_with(L" (hidden)") || name.ends_with(L" (suppressed)");
}

} // namespace

std::string treeText(TreeBuilder const& tree)
{
    std::vector<TreeBuilder::Item> const& items = tree.Items();
    std::vector<std::string> indents(items.size()); // what stands in front of a node's children
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        TreeBuilder::Item const& item = items[i];
        if (item.kind == TreeBuilder::Kind::Root) continue;
        bool const top = item.parent == TreeBuilder::NoItem ||
                         items[static_cast<std::size_t>(item.parent)].kind == TreeBuilder::Kind::Root;
        if (!top) {
            std::string const& before = indents[static_cast<std::size_t>(item.parent)];
            bool const last = item.nextSibling == TreeBuilder::NoItem;
            text += before + (last ? "└─ " : "├─ ");
            indents[i] = before + (last ? "   " : "│  ");
        }
        text += oneLine(toUtf8(item.name));
        if (!item.visible && !saysHidden(item.name)) text += " (off)";
        text += '\n';
    }
    return text;
}

} // namespace zelview
