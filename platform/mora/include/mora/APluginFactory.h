#pragma once
#include <memory>
#include <mora/IMenuAction.h>
#include <string>
#include <vector>

namespace MoraCore
{

class IView3DEvo;

struct ContextMenuItem {
    std::wstring label;
    std::unique_ptr<IMenuAction> action;
};

/// What a plug-in library hands to the host. The host calls `describe`, then `load`, then `createInstance` as
/// often as it likes, and `unload` at the end.
class APluginFactory
{
public:
    virtual ~APluginFactory() = default;
    /// New object of the given type, owned by the caller. Throws std::invalid_argument for an unknown type.
    virtual IView3DEvo* createInstance(char const* type) = 0;
    virtual void unload() = 0;
    /// Fills in the texts below.
    virtual void describe() = 0;
    /// Starts what the plug-in's objects need; throws what prevents it.
    virtual void load() = 0;
    /// Runs before any plug-in of the host is loaded; false keeps this one from being loaded.
    virtual bool doPreLoad() { return true; }
    /// Names of plug-ins that must be loaded before this one.
    virtual std::vector<std::string> getPreqPlugins() const { return {}; }
    /// Entries for the context menu of tree nodes.
    virtual std::vector<ContextMenuItem> createContextMenuItems() { return {}; }

    std::string const& getName() const { return name_; }
    std::string const& getDescription() const { return description_; }
    std::string const& getComponentName() const { return componentName_; }
    std::vector<std::string> const& getProducts() const { return products_; }
    bool isLoaded() const { return loaded_; }

protected:
    APluginFactory() = default;

    void setName(char const* name) { name_ = name; }
    void setDescription(char const* description) { description_ = description; }
    void setComponentName(char const* name) { componentName_ = name; }
    /// Adds a product that the plug-in contains, for the host's list of products.
    void addGetProduct(char const* product) { products_.emplace_back(product); }
    void setLoaded(bool loaded) { loaded_ = loaded; }

private:
    std::string name_;
    std::string description_;
    std::string componentName_;
    std::vector<std::string> products_;
    bool loaded_ = false;
};

} // namespace MoraCore
