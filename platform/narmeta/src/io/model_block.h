#pragma once

#include "ModelReader.h"

namespace NarMetaInfra
{
/// A read model and how the read went, for another process or a later run of this very build: zel_xml in
/// which all arrays stand as raw numbers in a block behind the text. The pieces are to stand one behind the
/// other.
struct PackedModel {
    using Pieces = std::vector<std::string_view>;

    std::string head; ///< with the report of the read
    std::string text;
    std::string block;

    Pieces pieces() const { return {head, text, block}; }
};
PackedModel packModel(ReadResult const& result, ZELProductStructure const& model);

/// Damaged, and nothing in @p model, if the piece is not whole or of another build.
ReadResult unpackModel(std::string_view piece, ReadRequest const& request, ZELProductStructure& model);
} // namespace NarMetaInfra
