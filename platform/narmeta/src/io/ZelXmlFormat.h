#pragma once

#include "ModelReader.h"

namespace NarMetaInfra
{

/// Reads the library's own readable form, "zel_xml".
class ZelXmlReader : public ModelReader
{
public:
    FileFormat Format() const override;
    Confidence Recognise(std::string_view head, std::string_view extension) const override;
    ReadResult Read(ReadRequest const& request, ZELProductStructure& model) const override;
};

/// The whole model as zel_xml text, or nothing if the caller's progress function asked to stop.
std::optional<std::string> ZelXmlText(ZELProductStructure const& model, Progress progress);

/// Fills @p model from zel_xml text.
ReadResult ReadZelXml(std::string_view text, ReadRequest const& request, ZELProductStructure& model);

} // namespace NarMetaInfra
