#pragma once

#include "hps_api.h"

namespace ZelVizBase
{

/// Hands the scene library's errors to the session's messages.
class ZELHPSErrorHandler : public HPS::EventHandler
{
public:
    ~ZELHPSErrorHandler() override { Shutdown(); }
    HandleResult Handle(HPS::Event const* event) override;
};

/// The same for its warnings.
class ZELHPSWarningHandler : public HPS::EventHandler
{
public:
    ~ZELHPSWarningHandler() override { Shutdown(); }
    HandleResult Handle(HPS::Event const* event) override;
};

} // namespace ZelVizBase
