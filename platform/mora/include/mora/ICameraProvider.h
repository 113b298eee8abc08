#pragma once

namespace MoraCore
{

class ACamera;

/// What has a camera: a view.
class ICameraProvider
{
public:
    /// Owned by the provider; null when there is none.
    virtual ACamera* GetCamera() = 0;

protected:
    ~ICameraProvider() = default;
};

} // namespace MoraCore
