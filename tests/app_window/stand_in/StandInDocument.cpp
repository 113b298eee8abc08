// A document whose file says what it does, one word on its first line:
//   parts N     a tree of N parts
//   broken      cannot be read
//   unbuildable can be read but not built
//   slow        reads until it is stopped
//   views       a tree of one view

#include "StandInHand.h"
#include "document_entry.h"

#include <mora/AViewTree.h>
#include <mora/IDocumentEvo.h>
#include <mora/IMenuAction.h>
#include <mora/IView3DEvo.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

namespace
{

using namespace MoraCore;

class StandInDocument final : public IDocumentEvo
{
public:
    explicit StandInDocument(AViewTree* tree) : Tree(tree) {}

    bool read(wchar_t const* path, void (*progress)(double, bool&))
    {
        std::ifstream file{std::filesystem::path(path)};
        file >> Word >> Parts;
        bool cancel = false;
        for (int step = 0; Word == "slow" && !cancel && step < 10'000; ++step) {
            progress(step / 10'000.0, cancel);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        if (Word == "broken") Error = L"it is broken";
        if (Word == "unbuildable") Error = L"it cannot be built";
        return !Word.empty() && Word != "broken" && !cancel;
    }

    bool Open(wchar_t const* path) override
    {
        Name = path;
        if (Word == "unbuildable") return false;
        TreeBuilder& builder = Tree->GetTreeBuilder();
        builder.BeginTree();
        builder.BeginRoot(1, L"ROOT");
        if (Word == "views") {
            builder.BeginView(6, L"Front view");
            builder.EndView();
        }
        for (int i = 0; i < Parts; ++i) {
            builder.BeginPart(static_cast<unsigned>(10 + i), L"Part " + std::to_wstring(i));
            builder.EndPart();
        }
        builder.EndRoot();
        builder.EndTree();
        return true;
    }

    void GetErrorAndWarnings(std::wstring* error, std::vector<std::wstring>* warnings) const override
    {
        if (error) *error = Error;
        if (warnings && Word == "parts") warnings->push_back(L"one edge is short");
    }
    void GetContentCounts(unsigned long long& parts, unsigned long long& bodies) const override
    {
        parts = static_cast<unsigned>(Parts);
        bodies = 0;
    }
    Extensions const& ValidImportExtensions() const override { return Kinds; }
    Extensions const& ValidExportExtensions() const override { return Kinds; }
    std::wstring GetOpenedModelName() const override { return Name; }
    bool GetProperties(RenderId const& id,
                       std::vector<std::pair<std::wstring, std::wstring>>& out) const override
    {
        out.emplace_back(L"Depth", std::to_wstring(id.Length()));
        return true;
    }

    void NoteState() override {}
    void Undo() override {}
    void Redo() override {}
    bool MakePartModelFromReference(unsigned long long) override { return false; }
    bool ShowHideBody(RenderId const&, IView3DEvo*) override { return false; }
    bool RemoveBodyFromPart(RenderId const&) override { return false; }
    bool Save(wchar_t const*) const override { return false; }
    void MakeFileNameFromReference(unsigned long long, std::wstring&) override {}
    bool ExportReferenceAsPart(unsigned long long, wchar_t const*) override { return false; }
    bool ActivateViewOrCapture(RenderId const&) override { return false; }
    bool Restore(wchar_t const*) override { return false; }
    void Reset() override {}
    bool Render(bool) override { return true; }
    void Highlight(EntityId const&, IView3DEvo*) override {}
    void Highlight(RenderId const& id, IView3DEvo*) override { Tree->HighlightItem(id); }
    void UnHighlight(IView3DEvo*) const override { Tree->ClearHighlight(); }
    void Select(EntityId const&, IView3DEvo*) override {}
    void Select(RenderId const&, IView3DEvo*) override {}
    void UnSelect(IView3DEvo*) const override {}
    bool ZoomTo(EntityId const&, IView3DEvo*) override { return false; }
    bool ZoomTo(RenderId const&, IView3DEvo*) override { return false; }
    std::wstring GetToolTip(RenderId const&) const override { return L"a tip"; }
    void SetTreeView(AViewTree*) override {}
    IContentRenderer* GetTreeContentRenderer() override { return nullptr; }
    bool IsEmpty() const override { return false; }
    bool HasEditablePart() const override { return false; }
    bool IsAssembly() const override { return false; }
    bool IsModified() const override { return false; }
    bool Convert(RenderId const&, HPS::KeyPath&) const override { return false; }
    bool Convert(EntityId const&, HPS::KeyPath&) const override { return false; }
    bool Convert(HPS::KeyPath const&, EntityId&) const override { return false; }
    bool Convert(HPS::KeyPath const&, RenderId&) const override { return false; }
    bool ConvertToEntity(RenderId const&, EntityId&) override { return false; }
    bool ConvertToRender(EntityId const&, RenderId&) override { return false; }
    bool FindNodes(std::wstring const&, std::vector<RenderId>&) const override { return false; }
    bool RayPick(ZELVizCore::Ray const&, EntityId&) override { return false; }

private:
    AViewTree* Tree;
    std::string Word;
    int Parts = 0;
    std::wstring Error;
    std::wstring Name;
    Extensions Kinds{{L"words", L"Words"}, {L"step", L"STEP"}};
};

/// Notes which entry was called with which node.
class StandInAction final : public IMenuAction
{
public:
    explicit StandInAction(MenuEntry entry) : Entry(entry) {}

    bool operator()(ZELVizCore::RenderId const& id) override
    {
        note(QStringLiteral("entry %1 of %2").arg(static_cast<int>(Entry)).arg(id[id.Length() - 1]));
        return true;
    }

private:
    MenuEntry Entry;
};

} // namespace

MoraCore::IDocumentEvo* CreateDocument(MoraCore::AViewTree* tree)
{
    return new StandInDocument(tree);
}

bool ReadDocumentAhead(MoraCore::IDocumentEvo& document, wchar_t const* path, ReadGuard const&,
                       void (*progress)(double, bool&))
{
    return static_cast<StandInDocument&>(document).read(path, progress);
}

MoraCore::IMenuAction* CreateMenuAction(MenuEntry entry)
{
    return new StandInAction(entry);
}

bool ReadViewPicture(MoraCore::IView3DEvo&, void (*take)(void*, int, int, unsigned char const*), void* target)
{
    constexpr unsigned char Red[] = {255, 0, 0, 255};
    take(target, 1, 1, Red);
    return true;
}
