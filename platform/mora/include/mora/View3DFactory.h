#pragma once
#include <memory>
#include <mora/ACamera.h>
#include <string_view>
#include <vector>

namespace MoraCore
{

/// Makes cameras by the name of their class from registered prototypes.
class ACameraFactory
{
public:
    /// New camera for a view (null: none yet), owned by the caller; null for a name that nobody registered.
    ACamera* MakeCamera(IView3DEvo* view, std::string_view name) const;
    /// The same with the view and the settings of another camera, whatever its class.
    ACamera* MakeCamera(ACamera const& from, std::string_view name) const;

private:
    friend class View3DFactory;
    std::vector<std::unique_ptr<ACamera>> prototypes_;
};

class View3DFactory
{
public:
    static View3DFactory& Instance();

    /// Takes the prototype over; an earlier one of the same name goes.
    void RegisterCameraDefinition(ACamera* prototype);
    /// Deletes all prototypes: needed before the library that holds their code is closed.
    void ClearCameraDefinitions();
    ACameraFactory const& GetCameraFactory() const { return cameras_; }

private:
    ACameraFactory cameras_;
};

} // namespace MoraCore
