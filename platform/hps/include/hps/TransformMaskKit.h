#pragma once
#include <hps/Kit.h>

namespace HPS
{

// Which parts of the camera and of the modelling matrices above do not act on what is below.
struct TransformMaskData {
    std::optional<bool> cameraRotation;
    std::optional<bool> cameraScale;
    std::optional<bool> cameraTranslation;
    std::optional<bool> cameraPerspectiveScale;
    std::optional<bool> cameraProjection;
    std::optional<bool> cameraOffset;
    std::optional<bool> cameraNearLimit;
    std::optional<bool> modellingMatrixRotation;
    std::optional<bool> modellingMatrixScale;
    std::optional<bool> modellingMatrixTranslation;
    std::optional<bool> modellingMatrixOffset;

    bool operator==(TransformMaskData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{
            Aspect{1, "CameraRotation", &TransformMaskData::cameraRotation},
            Aspect{2, "CameraScale", &TransformMaskData::cameraScale},
            Aspect{3, "CameraTranslation", &TransformMaskData::cameraTranslation},
            Aspect{4, "CameraPerspectiveScale", &TransformMaskData::cameraPerspectiveScale},
            Aspect{5, "CameraProjection", &TransformMaskData::cameraProjection},
            Aspect{6, "CameraOffset", &TransformMaskData::cameraOffset},
            Aspect{7, "CameraNearLimit", &TransformMaskData::cameraNearLimit},
            Aspect{8, "ModellingMatrixRotation", &TransformMaskData::modellingMatrixRotation},
            Aspect{9, "ModellingMatrixScale", &TransformMaskData::modellingMatrixScale},
            Aspect{10, "ModellingMatrixTranslation", &TransformMaskData::modellingMatrixTranslation},
            Aspect{11, "ModellingMatrixOffset", &TransformMaskData::modellingMatrixOffset}};
    }
};
static_assert(CompleteKit<TransformMaskData>);

template <class Self> class TransformMaskOperations : public Operations<Self>
{
public:
    using Data = TransformMaskData;

    HPS_ASPECT(CameraRotation, bool, cameraRotation)
    HPS_ASPECT(CameraScale, bool, cameraScale)
    HPS_ASPECT(CameraTranslation, bool, cameraTranslation)
    HPS_ASPECT(CameraPerspectiveScale, bool, cameraPerspectiveScale)
    HPS_ASPECT(CameraProjection, bool, cameraProjection)
    HPS_ASPECT(CameraOffset, bool, cameraOffset)
    HPS_ASPECT(CameraNearLimit, bool, cameraNearLimit)
    HPS_ASPECT(ModellingMatrixRotation, bool, modellingMatrixRotation)
    HPS_ASPECT(ModellingMatrixScale, bool, modellingMatrixScale)
    HPS_ASPECT(ModellingMatrixTranslation, bool, modellingMatrixTranslation)
    HPS_ASPECT(ModellingMatrixOffset, bool, modellingMatrixOffset)
};

class TransformMaskKit : public Kit<TransformMaskKit, TransformMaskOperations>
{
public:
    static TransformMaskKit GetDefault();
};

class TransformMaskControl : public Control<TransformMaskControl, TransformMaskOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
