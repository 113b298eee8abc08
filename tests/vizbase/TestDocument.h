#pragma once

#include "TestRenderer.h"
#include "ZELDocument.h"

namespace ZelVizBase
{

/// A concrete document over a model built by hand: it "reads" by calling Fill, and notes the hooks it was
/// asked for.
class TestDocument : public ZELDocument
{
public:
    TestDocument()
    {
        IO = &Reader;
        ProductStructure = &Structure;
        Renderer = &SceneRenderer;
        ImportExtensions = {{L"step", L"STEP"}};
    }

    using ZELDocument::Tree;

    void WithoutStructure() { ProductStructure = nullptr; }
    void WithoutReader() { IO = nullptr; }

    bool IsModified() const override { return false; }
    bool ConvertToEntity(RenderId const&, EntityId&) override { return false; }
    bool ConvertToRender(EntityId const&, RenderId&) override { return false; }
    bool GetProperties(RenderId const&, std::vector<std::pair<std::wstring, std::wstring>>&) const override
    {
        return false;
    }
    bool FindNodes(std::wstring const&, std::vector<RenderId>&) const override { return false; }
    void GetContentCounts(unsigned long long&, unsigned long long&) const override {}

    NarMetaInfra::ZelIO Reader;
    NarMetaInfra::ZELProductStructure Structure;
    TestRenderer SceneRenderer{this};
    /// What a read puts into the structure.
    void (*Fill)(NarMetaInfra::ZELProductStructure&) = nullptr;
    bool ReadSucceeds = true;
    mutable std::vector<std::string> Calls;

protected:
    bool doImport(wchar_t const*, Progress) override
    {
        Calls.push_back("import");
        if (ReadSucceeds && Fill) Fill(Structure);
        return ReadSucceeds;
    }
    bool doExportAs(wchar_t const*, wchar_t const*, Progress) override { return note("export as"); }
    bool doExport(wchar_t const*, Progress) override { return note("export"); }
    bool doSaveXml(wchar_t const*) const override { return note("save xml"); }
    bool doRestore(wchar_t const*) override
    {
        note("restore");
        if (ReadSucceeds && Fill) Fill(Structure);
        return ReadSucceeds;
    }
    bool buildBRepSceneGraph() override
    {
        return note("build brep") && SceneRenderer.BuildSceneGraphBrep(&Structure);
    }
    bool buildVisuSceneGraph() override
    {
        return note("build visu") && SceneRenderer.BuildSceneGraphVisu(&Structure);
    }

private:
    bool note(char const* call) const
    {
        Calls.push_back(call);
        return true;
    }
};

} // namespace ZelVizBase
