#pragma once

#include "ModelReader.h"

namespace NarMetaInfra
{

/// The readers of all formats.
class ReaderRegistry
{
public:
    /// How much of a file Recognise gets to see, in bytes.
    static constexpr std::size_t HeadSize = 4096;

    /// The readers built into this library.
    static ReaderRegistry const& BuiltIn();

    void Add(std::unique_ptr<ModelReader> reader) { readers_.push_back(std::move(reader)); }
    std::vector<std::unique_ptr<ModelReader>> const& GetReaders() const { return readers_; }

    /// The reader that is surest; among equals the one that claims the extension, then the one added first.
    /// Null if nobody knows the file.
    ModelReader const* Find(std::string_view head, std::string_view extension) const;

private:
    std::vector<std::unique_ptr<ModelReader>> readers_;
};

} // namespace NarMetaInfra
