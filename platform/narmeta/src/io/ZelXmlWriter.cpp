#include "ZelXmlFormat.h"
#include "model_check.h"
#include "zel_xml_parts.h"

namespace NarMetaInfra
{

namespace
{

std::wstring PidOf(auto const& object)
{
    std::wstring pid;
    object.GetPID(pid);
    return pid;
}

wchar_t const* NameOf(ZELReference::Kind kind)
{
    switch (kind) {
    case ZELReference::Kind::Part:
        return L"part";
    case ZELReference::Kind::Assembly:
        return L"assembly";
    case ZELReference::Kind::Missing:
        return L"missing";
    }
    return L"";
}

void WriteInstance(XmlSink& sink, ZELInstance const& instance)
{
    auto const element = sink.Open("instance");
    sink.Attribute("of", PidOf(*instance.GetReference()));
    sink.Attribute("pid", PidOf(instance));
    sink.Attribute("name", ValidName(instance.GetInstanceName()));
    sink.Colours(instance.GetColours());
    bool flag = false;
    sink.Flag("hidden", instance.GetHidden(flag) && flag);
    sink.Flag("suppressed", instance.GetSuppressed(flag) && flag);
    if (instance.GetMatrix() != IdentityMatrix) sink.Array("transform", instance.GetMatrix());
}

void WriteReference(XmlSink& sink, ZELReference const& reference)
{
    auto const element = sink.Open("reference");
    sink.Attribute("kind", std::wstring(NameOf(reference.GetKind())));
    sink.Attribute("pid", PidOf(reference));
    sink.Attribute("name", ValidName(reference.GetReferenceName()));
    sink.Attribute("file", ValidName(reference.GetStorageName()));
    sink.Flag("graphical", reference.IsGraphical());
    for (auto const& body : reference.GetBodies()) WriteBody(sink, body);
    for (auto const& [name, value] : reference.GetUserProperties()) {
        auto const child = sink.Open("property");
        sink.Attribute("name", name);
        sink.Attribute("value", value);
    }
    // The map has no order of its own: equal models give equal files.
    std::map<std::wstring, Id> const names(reference.GetEntityNames().begin(),
                                           reference.GetEntityNames().end());
    for (auto const& [name, id] : names) {
        auto const child = sink.Open("entity");
        sink.Attribute("name", name);
        sink.Attribute("id", id);
    }
    if (auto const& exact = reference.GetExactShape(); exact && sink.IsPacked()) {
        auto const child = sink.Open("exact");
        sink.Records("shape", exact->bytes.data(), exact->bytes.size());
        sink.Array("faces", exact->faces);
    }
    for (auto const& instance : reference.GetInstances()) WriteInstance(sink, *instance);
    if (reference.GetSG()) WriteVisualisation(sink, *reference.GetSG());
    if (reference.GetPmi()) WriteAnnotations(sink, *reference.GetPmi());
}

} // namespace

std::optional<std::string> ZelXmlText(ZELProductStructure const& model, Progress progress, std::string* block)
{
    QByteArray text;
    XmlSink sink(&text, block);
    auto const stopped = [progress](double done) {
        bool cancel = false;
        if (progress) progress(done, cancel);
        return cancel;
    };
    {
        auto const element = sink.Open("zel_xml");
        sink.Attribute("version", 1);
        auto const product = sink.Open("product");
        sink.Attribute("pid", PidOf(model));
        sink.Attribute("name", ValidName(model.GetProductName()));
        if (auto const& information = model.GetDocumentInformation()) {
            auto const child = sink.Open("information");
            for (auto const& [label, value] : information->GetLines()) {
                auto const line = sink.Open("line");
                sink.Attribute("label", ValidName(label));
                sink.Attribute("value", ValidName(value));
            }
        }
        Materials materials;
        if (model.GetSG()) CollectMaterials(*model.GetSG(), materials);
        for (auto const& reference : model.GetReferences())
            if (reference->GetSG()) CollectMaterials(*reference->GetSG(), materials);
        WriteMaterials(sink, materials);

        double written = 0;
        for (auto const& reference : model.GetReferences()) {
            if (stopped(written++ / static_cast<double>(model.GetReferences().size()))) return {};
            WriteReference(sink, *reference);
        }
        for (auto const& root : model.GetRootInstances()) WriteInstance(sink, *root);
        if (model.GetSG()) WriteVisualisation(sink, *model.GetSG());
        if (model.GetPMI()) WriteAnnotations(sink, *model.GetPMI());
    }
    if (stopped(1)) return {};
    text += '\n';
    return text.toStdString();
}

} // namespace NarMetaInfra
