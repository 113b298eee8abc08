#pragma once

#include "host_api.h"

namespace ZelVizBase
{

/// Entry of a host's menu: writes the part that a node shows to a file of its own, beside the one that it
/// comes from, or where the user says if that is not known.
class SaveAsPartAction : public MoraCore::IMenuAction
{
public:
    /// False, without a word, for an id of another origin and if the user names no file. What went well or
    /// wrong is told to the session, which is not interactive meanwhile. Throws std::runtime_error without a
    /// document.
    bool operator()(ZELVizCore::RenderId const& id) override;
    ~SaveAsPartAction() override = default;
};

} // namespace ZelVizBase
