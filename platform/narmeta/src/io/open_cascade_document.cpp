#include "open_cascade_document.h"

#include "text_encoding.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <TDataStd_Name.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>

namespace NarMetaInfra
{
KernelDocument::KernelDocument() { XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document); }

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

std::wstring wideText(TCollection_ExtendedString const& text)
{
    return wideFromUtf16(text.ToExtString(), static_cast<std::size_t>(text.Length()));
}

std::wstring labelName(TDF_Label const& label)
{
    Handle(TDataStd_Name) attribute;
    if (!label.FindAttribute(TDataStd_Name::GetID(), attribute)) return {};
    auto const name = wideText(attribute->Get());
    static constexpr std::array<std::wstring_view, 9> ShapeKinds = {
        L"COMPOUND", L"COMPSOLID", L"SOLID", L"SHELL", L"FACE", L"WIRE", L"EDGE", L"VERTEX", L"ASSEMBLY"};
    bool const madeUp = name.starts_with(L"=>[") || std::ranges::find(ShapeKinds, name) != ShapeKinds.end();
    return madeUp ? std::wstring() : name;
}
} // namespace NarMetaInfra
