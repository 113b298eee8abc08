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
    bool IsQuick() const override { return true; }
    ReadResult Read(ReadRequest const& request, ZELProductStructure& model) const override;
};

/// The whole model as zel_xml text, or nothing if the caller's progress function asked to stop. @p block: see
/// XmlSink; exact shapes go along then.
std::optional<std::string> ZelXmlText(ZELProductStructure const& model, Progress progress,
                                      std::string* block = nullptr);

/// Fills @p model from zel_xml text.
ReadResult ReadZelXml(std::string_view text, ReadRequest const& request, ZELProductStructure& model,
                      std::string_view block = {});

} // namespace NarMetaInfra
