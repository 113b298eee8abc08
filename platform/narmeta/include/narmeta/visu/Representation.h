#pragma once

#include <narmeta/Id.h>

#include <string>

namespace NarMetaVisu
{

/// What the drawable contents of a leaf node have in common: a name for the tree and an id for tree and
/// scene.
class Representation
{
public:
    explicit Representation(NarMeta::Id id = 0, std::wstring name = {}) : id_(id), name_(std::move(name)) {}

    std::wstring const& GetDisplayName() const { return name_; }
    NarMeta::Id GetHashedID() const { return id_; }

private:
    NarMeta::Id id_;
    std::wstring name_;
};

} // namespace NarMetaVisu
