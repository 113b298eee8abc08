#pragma once
#include <hps/HighlightOptionsKit.h>
#include <hps/KeyPath.h>

namespace HPS
{

// What a selection is read through: an iterator whose items show their key paths.
template <class T>
concept ShowsPaths = requires(T const& items, KeyPath& path)
{
    items.GetIterator().GetItem().ShowPath(path);
};

// What is highlighted on a window. A path stands for every place on the window where its front is shown and
// its other keys lie above in their order; keys that the path leaves out may be anything. So a single key
// stands for all places where it is shown. A highlight holds for all below what it names. It stays while the
// scene around it is edited, and goes with the keys of its path.
class HighlightControl
{
public:
    explicit HighlightControl(Key const& window) : window_(window) {}

    // Lays a highlight over those there are, on top of them. One path may bear several that differ in
    // options; the same once more is moved to the top. With `removeExisting` it takes the place of all
    // others.
    // Nothing happens for an empty path or a stale key.
    HighlightControl& Highlight(KeyPath const& path, HighlightOptionsKit const& options,
                                bool removeExisting = true)
    {
        return Highlight(KeyPathArray{path}, options, removeExisting);
    }
    HighlightControl& Highlight(Key const& key, HighlightOptionsKit const& options,
                                bool removeExisting = true)
    {
        return Highlight(KeyPath(KeyArray{key}), options, removeExisting);
    }
    HighlightControl& Highlight(KeyPathArray const& paths, HighlightOptionsKit const& options,
                                bool removeExisting = true);
    template <ShowsPaths Items> HighlightControl&
    Highlight(Items const& items, HighlightOptionsKit const& options, bool removeExisting = true)
    {
        return Highlight(pathsOf(items), options, removeExisting);
    }

    // Takes away the highlights of this very path whose options agree with all that is set in these; with
    // empty ones every highlight of the path.
    HighlightControl& Unhighlight(KeyPath const& path, HighlightOptionsKit const& options)
    {
        return Unhighlight(KeyPathArray{path}, options);
    }
    HighlightControl& Unhighlight(Key const& key, HighlightOptionsKit const& options)
    {
        return Unhighlight(KeyPath(KeyArray{key}), options);
    }
    HighlightControl& Unhighlight(KeyPathArray const& paths, HighlightOptionsKit const& options);
    template <ShowsPaths Items>
    HighlightControl& Unhighlight(Items const& items, HighlightOptionsKit const& options)
    {
        return Unhighlight(pathsOf(items), options);
    }
    // The same for every path.
    HighlightControl& Unhighlight(HighlightOptionsKit const& options);
    HighlightControl& UnhighlightEverything();

    // The highlights that hold at a place, the topmost last: those of the path itself and of what lies above
    // it. False if there are none.
    bool ShowHighlight(KeyPath const& path, std::vector<HighlightOptionsKit>& options) const;
    bool ShowHighlight(Key const& key, std::vector<HighlightOptionsKit>& options) const
    {
        return ShowHighlight(KeyPath(KeyArray{key}), options);
    }
    // Everything highlighted, as it was asked for, the topmost last.
    bool ShowHighlightedPaths(KeyPathArray& paths) const;

private:
    template <class Items> static KeyPathArray pathsOf(Items const& items)
    {
        KeyPathArray paths;
        for (auto at = items.GetIterator(); at.IsValid(); at.Next())
            if (KeyPath path; at.GetItem().ShowPath(path)) paths.push_back(std::move(path));
        return paths;
    }

    Key window_;
};

} // namespace HPS
