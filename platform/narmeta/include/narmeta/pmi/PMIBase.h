#pragma once

#include <narmeta/Id.h>

#include <string>

namespace NarMetaPmi
{

/// What all objects of the annotation tree have in common.
class PMIBase
{
public:
    PMIBase(NarMeta::Id id, std::wstring name) : id_(id), name_(std::move(name)) {}
    virtual ~PMIBase() = default;

    std::wstring const& GetName() const { return name_; }
    NarMeta::Id GetHashedID() const { return id_; }
    bool IsHidden() const { return hidden_; }
    void SetHidden(bool hidden) { hidden_ = hidden; }

private:
    NarMeta::Id id_;
    std::wstring name_;
    bool hidden_ = false;
};

/// A view or a capture: of each kind at most one of a model is active.
class PMIActivatable : public PMIBase
{
public:
    using PMIBase::PMIBase;

    bool GetActive() const { return active_; }
    void SetActive(bool active) { active_ = active; }

private:
    bool active_ = false;
};

} // namespace NarMetaPmi
