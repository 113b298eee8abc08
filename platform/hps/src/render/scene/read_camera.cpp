#include "read_scene.h"
#include <hps/CameraKit.h>
#include <tuple>

namespace HPS::render
{

Camera readCamera(SceneSources const& sources)
{
    CameraData const set = sources.view.get<CameraData>();
    CameraData const fallback = CameraKit::GetDefault().data();
    auto value = [&](auto slot) { return set.*slot ? *(set.*slot) : *(fallback.*slot); };
    Camera camera;
    camera.position = vec(value(&CameraData::position));
    camera.target = vec(value(&CameraData::target));
    camera.up = vec(value(&CameraData::upVector));
    std::tie(camera.fieldWidth, camera.fieldHeight) = value(&CameraData::field);
    auto const projection = std::get<0>(value(&CameraData::projection));
    camera.perspective = projection != HPS::Camera::Projection::Orthographic;
    return camera;
}

} // namespace HPS::render
