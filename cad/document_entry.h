#pragma once

namespace MoraCore
{
class AViewTree;
class IDocumentEvo;
class IMenuAction;
class IView3DEvo;
} // namespace MoraCore

/// How a read beside the window is guarded.
struct ReadGuard {
    bool ownProcess = true; ///< a fault in the file or a limit ends that process alone
    double seconds = -1;    ///< the longest that it may take, 0: no limit; negative: as the settings say
};

/// Entries of a host's menu for a node of the tree, which work on the session's document.
enum class MenuEntry {
    ActivateViewOrCapture,
    MakePartFromReference,
    SaveAsPart,
};

// What a host looks up in this library at run time, so that it needs neither it nor the plug-in at its link.
extern "C" {

/// A new document, owned by the caller.
/// @param tree where it writes its tree; not owned, must outlive the document; null: no tree
MoraCore::IDocumentEvo* CreateDocument(MoraCore::AViewTree* tree);

/// Reads a file into an empty document of ours, by the current settings. It touches neither scene nor tree,
/// so that it may run beside the thread that does. The next `Open` of the same path takes what was read, or
/// fails with what is told in `GetErrorAndWarnings`.
bool ReadDocumentAhead(MoraCore::IDocumentEvo& document, wchar_t const* path, ReadGuard const& guard,
                       void (*progress)(double done, bool& cancel));

/// A new one, owned by the caller.
MoraCore::IMenuAction* CreateMenuAction(MenuEntry entry);

/// Calls `take` with the picture of the last update of a view of the plug-in: four bytes a pixel, rows from
/// the top down without gaps, valid during the call. False if there is none.
bool ReadViewPicture(MoraCore::IView3DEvo& view,
                     void (*take)(void* target, int width, int height, unsigned char const* pixels),
                     void* target);
}
