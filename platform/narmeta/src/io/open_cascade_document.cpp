#include "open_cascade_document.h"

#include "text_encoding.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_LayerTool.hxx>

namespace NarMetaInfra
{
KernelDocument::KernelDocument()
{
    XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document);
}

KernelDocument::~KernelDocument()
{
    if (!document.IsNull()) XCAFApp_Application::GetApplication()->Close(document);
}

Handle(XCAFDoc_ShapeTool) KernelDocument::shapes() const
{
    return XCAFDoc_DocumentTool::ShapeTool(document->Main());
}

Handle(XCAFDoc_ColorTool) KernelDocument::colors() const
{
    return XCAFDoc_DocumentTool::ColorTool(document->Main());
}

std::vector<TDF_Label> KernelDocument::rootLabels() const
{
    if (!knownRoots.empty()) return knownRoots;
    TDF_LabelSequence roots;
    shapes()->GetFreeShapes(roots);
    return {roots.begin(), roots.end()};
}

std::wstring KernelDocument::nameOf(TDF_Label const& label) const
{
    Handle(TDataStd_Name) attribute;
    if (!label.FindAttribute(TDataStd_Name::GetID(), attribute)) return {};
    auto const& text = attribute->Get();
    auto name = wideFromUtf16(text.ToExtString(), static_cast<std::size_t>(text.Length()));
    if (hasByteNames && std::ranges::all_of(name, [](wchar_t c) { return c < 0x100; }))
        name = wideFromBytes(std::string(name.begin(), name.end()));
    name = trimmed(name);
    static constexpr std::array<std::wstring_view, 9> ShapeKinds = {
        L"COMPOUND", L"COMPSOLID", L"SOLID", L"SHELL", L"FACE", L"WIRE", L"EDGE", L"VERTEX", L"ASSEMBLY"};
    bool const madeUp = name.starts_with(L"=>[") || std::ranges::find(ShapeKinds, name) != ShapeKinds.end();
    return madeUp ? std::wstring() : name;
}

void KernelDocument::hideInvisibleLayers()
{
    auto const layers = XCAFDoc_DocumentTool::LayerTool(document->Main());
    TDF_LabelSequence layerLabels;
    layers->GetLayerLabels(layerLabels);
    for (auto const& layer : layerLabels) {
        TDF_LabelSequence members;
        if (layers->IsVisible(layer)) continue;
        layers->GetShapesOfLayer(layer, members);
        for (auto const& member : members) colors()->SetVisibility(member, false);
    }
}
} // namespace NarMetaInfra
