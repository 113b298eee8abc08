#include "StandInView.h"

#include <mora/APluginFactory.h>

#include <cstdlib>
#include <stdexcept>

namespace
{

class StandInFactory final : public MoraCore::APluginFactory
{
public:
    MoraCore::IView3DEvo* createInstance(char const* type) override
    {
        note(QString("createInstance ") + type);
        return new StandInView;
    }
    void unload() override { note("unload"); }
    void describe() override
    {
        note("describe");
        setName("StandIn");
    }
    void load() override
    {
        note("load");
        if (std::getenv("STAND_IN_FAILS")) throw std::runtime_error("no graphics today");
    }
};

} // namespace

extern "C" {
MoraCore::APluginFactory* CreatePlugin()
{
    note("CreatePlugin");
    return new StandInFactory;
}
char const* GetPluginType()
{
    return std::getenv("STAND_IN_TYPE") ? std::getenv("STAND_IN_TYPE") : "ZELView3D";
}
char const* GetPluginName()
{
    return "StandIn";
}
}
