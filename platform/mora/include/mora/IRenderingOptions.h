#pragma once

namespace ZELVizCore
{

class IRenderingOptions;

/// Is told of each change of the options that it registered with.
class IRenderingOptionsListener
{
public:
    virtual ~IRenderingOptionsListener() = default;
    virtual void Notify(IRenderingOptions* options) = 0;
};

class IRenderingOptions
{
public:
    virtual ~IRenderingOptions() = default;
    /// We don't own listeners: one must unregister before it goes. A second registration changes nothing.
    virtual void RegisterListener(IRenderingOptionsListener* listener) = 0;
    virtual void UnregisterListener(IRenderingOptionsListener* listener) = 0;
};

} // namespace ZELVizCore
