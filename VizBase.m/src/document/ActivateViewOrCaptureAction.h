#pragma once

#include "host_api.h"

namespace ZelVizBase
{

/// Entry of a host's menu: makes a view or a capture of the session's document the active one of its kind.
class ActivateViewOrCaptureAction : public MoraCore::IMenuAction
{
public:
    /// False, without a word, for an id of another origin. What went well or wrong is told to the session.
    /// Throws std::runtime_error without a document.
    bool operator()(ZELVizCore::RenderId const& id) override;
    ~ActivateViewOrCaptureAction() override = default;
};

} // namespace ZelVizBase
