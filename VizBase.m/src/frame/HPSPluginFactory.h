#pragma once

#include "host_api.h"
#include "hps_api.h"

#include <memory>

namespace ZelVizBase
{

/// Starts the scene library and makes views. The host goes by `describe`, `load`, `createInstance`, and
/// `unload` at the end.
class HPSPluginFactory : public MoraCore::APluginFactory
{
public:
    HPSPluginFactory();

    /// Of type "ZELView3D" alone, compared byte by byte; owned by the host. Throws std::invalid_argument for
    /// any other.
    MoraCore::IView3DEvo* createInstance(char const* type) override;
    /// Takes the scene library down; the cameras stay registered.
    void unload() override;
    void describe() override;
    /// Once until the next `unload`. Throws what prevented it.
    void load() override;

private:
    std::unique_ptr<HPS::World> World; ///< null until loaded and after unloading
};

} // namespace ZelVizBase

// What the host looks up in the library.
extern "C" {
/// A new factory, owned by the caller.
MoraCore::APluginFactory* CreatePlugin();
char const* GetPluginType();
char const* GetPluginName();
}
