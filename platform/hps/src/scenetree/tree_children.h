#pragma once
#include <functional>
#include <hps/SceneTree.h>

namespace HPS::scene
{

// Takes a child's key, type and title. False ends the listing: the caller has seen enough.
using TakeChild = std::function<bool(Key const&, SceneTree::ItemType, UTF8 const&)>;

// Tells the children of an item in order, as the scene stands.
void listChildren(Key const& key, SceneTree::ItemType type, TakeChild const& take);

} // namespace HPS::scene
