#include <narmeta/infra/ZELDocumentInformation.h>

namespace NarMetaInfra
{

void ZELDocumentInformation::GetAsString(std::wstring& text) const
{
    for (auto const& [label, value] : lines_) text += label + L"\t\t   :" + value + L"\n";
}

} // namespace NarMetaInfra
