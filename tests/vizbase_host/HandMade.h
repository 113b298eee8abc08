#pragma once

#include "../cad/Plates.h"
#include "Host.h"

#include <mora/SessionMgr.h>

/// A document whose model is made by hand, in a view and at work in the session.
class HandMade
{
public:
    HandMade() : model(*document.GetProductStructure())
    {
        model.SetPID(L"plates");
        model.SetProductName(L"Plates");
        window.view().AttachDocument(&document);
        session().SetView3DEvo(&window.view());
        session().SetDocumentEvo(&document);
        session().ClearMessages();
    }
    ~HandMade()
    {
        session().SetDocumentEvo(nullptr);
        session().SetView3DEvo(nullptr);
    }

    static MoraCore::ASession& session() { return MoraCore::SessionMgr::Instance().CurrentSession(); }
    /// The last message; empty if there was none.
    static std::wstring lastMessage()
    {
        return session().Messages().empty() ? std::wstring() : session().Messages().back().text;
    }

    std::shared_ptr<NarMetaInfra::ZELReference> part(std::wstring const& pid)
    {
        return model.AddReference(NarMetaInfra::ZELReference::Kind::Part, pid, pid);
    }
    std::shared_ptr<NarMetaInfra::ZELReference> assembly(std::wstring const& pid)
    {
        return model.AddReference(NarMetaInfra::ZELReference::Kind::Assembly, pid, pid);
    }

    /// What stands behind the model's own values in an id.
    ZELVizCore::RenderId id(std::vector<unsigned long long> values) const
    {
        auto const number = reinterpret_cast<unsigned long long>(&model);
        values.insert(values.begin(), {1, ZELVizCore::ARenderer::getSignedId(number)});
        return {values, ZELVizCore::RenderId::OriginEnum::Visualisation};
    }

    HPS::UTF8Array conditionsOf(std::wstring const& instancePid)
    {
        HPS::Key key;
        HPS::UTF8Array conditions;
        if (document.GetRenderer()->GetObjectMapper()->Get(instancePid, key))
            HPS::SegmentKey(key).GetConditionControl().ShowConditions(conditions);
        return conditions;
    }

    std::vector<std::wstring> names() const
    {
        std::vector<std::wstring> names;
        for (auto const& item : tree.GetTreeBuilder().Items()) names.push_back(item.name);
        return names;
    }

    QImage picture() const
    {
        HPS::Picture made;
        if (!document.GetCanvas().ReadPixels(made)) return {};
        return QImage(made.pixels.data(), made.width, made.height, 4 * made.width, QImage::Format_RGBX8888)
            .copy();
    }

    Host& host = Host::instance(); ///< starts the scene library
    MoraCore::AViewTree tree;
    ZelCad::CadDocument document{&tree};
    NarMetaInfra::ZELProductStructure& model;
    Window window{""}; ///< goes before the document
};
