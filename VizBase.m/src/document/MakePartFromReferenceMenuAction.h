#pragma once

#include "host_api.h"

namespace ZelVizBase
{

/// Entry of a host's menu: leaves nothing of the session's document but the part that a node shows.
class MakePartFromReferenceMenuAction : public MoraCore::IMenuAction
{
public:
    /// False, without a word, for an id of another origin. What went well or wrong is told to the session,
    /// which is not interactive meanwhile. Throws std::runtime_error without a document.
    bool operator()(ZELVizCore::RenderId const& id) override;
    ~MakePartFromReferenceMenuAction() override = default;
};

} // namespace ZelVizBase
