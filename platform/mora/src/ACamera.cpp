#include "caller_fault.h"
#include <algorithm>
#include <cmath>
#include <mora/ACamera.h>
#include <mora/IView3DEvo.h>
#include <mora/vector_math.h>
#include <numbers>

namespace MoraCore
{

using namespace ZELVizCore;

namespace
{

void copy(float const* from, float* to)
{
    std::copy_n(from, 3, to);
}

void cross(float const* a, float const* b, float* result)
{
    float const c[3] = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    copy(c, result);
}

/// False, and `vector` untouched, for one of no length.
bool normalise(float* vector)
{
    float const length = Length(vector);
    if (!(length > 0) || !std::isfinite(length)) return false;
    Multiply(vector, 1.0 / length, vector);
    return true;
}

/// `point` moved along `direction` by `distance`.
void moveAlong(float* point, float const* direction, double distance)
{
    float step[3];
    Multiply(direction, distance, step);
    Add(point, step, point);
}

} // namespace

struct ACamera::Frame {
    float right[3];
    float up[3];
    float forward[3];
};

ACamera::ACamera(IView3DEvo* view) : Evo(view) {}

void ACamera::GetCamera(float* position, float* target, float* up)
{
    getCurrentCamera();
    copy(Position, position);
    copy(Target, target);
    copy(Up, up);
}

void ACamera::SetCamera(float* position, float* target, float* up)
{
    // The arguments are copied first: they may be our own fields, which the refresh below writes.
    float p[3], t[3], u[3];
    copy(position, p);
    copy(target, t);
    copy(up, u);
    getCurrentCamera(); // for the projection, which stays
    copy(p, Position);
    copy(t, Target);
    copy(u, Up);
    if (animate_)
        animateCamera(p, t, u);
    else
        moveCamera(p, t, u);
}

bool ACamera::IsOrthographic() const
{
    return Orthographic;
}

void ACamera::SetFieldOfView(float degrees)
{
    SetFieldOfViewRadians(degrees * std::numbers::pi_v<float> / 180);
}

void ACamera::SetFieldOfViewRadians(float radians)
{
    if (!(radians > 0 && radians < std::numbers::pi_v<float>))
        return callerFault("ACamera::SetFieldOfViewRadians", std::to_string(radians));
    fieldOfView_ = radians;
}

float ACamera::GetFieldOfView()
{
    return fieldOfView_ * 180 / std::numbers::pi_v<float>;
}

float ACamera::GetFieldOfViewRadians()
{
    getCurrentCamera();
    return fieldOfView_;
}

void ACamera::GetRotationCenter(float* center)
{
    if (rotationCenter_) return copy(rotationCenter_->data(), center);
    getCurrentCamera();
    copy(Target, center);
}

void ACamera::SetRotationCenter(float const* center)
{
    rotationCenter_.reset();
    if (center) rotationCenter_ = {center[0], center[1], center[2]};
}

void ACamera::ZoomAll()
{
    float const radius = GetGeometryRadius();
    float const* center = GetGeometryCenter();
    if (center && radius > 0) fitSphere(center, radius);
}

void ACamera::ZoomToBox(float xmin, float ymin, float zmin, float xmax, float ymax, float zmax)
{
    float const diagonal[3] = {xmax - xmin, ymax - ymin, zmax - zmin};
    bool const valid =
        std::ranges::all_of(diagonal, [](float extent) { return extent >= 0 && std::isfinite(extent); });
    if (!valid) return;
    float const center[3] = {xmin + diagonal[0] / 2, ymin + diagonal[1] / 2, zmin + diagonal[2] / 2};
    fitSphere(center, Length(diagonal) / 2);
}

void ACamera::Rotate(ViewOpRotate* operation)
{
    if (!operation) return;
    float center[3];
    GetRotationCenter(center);
    getCurrentCamera();
    Frame axes = frame();
    float const origin[3] = {0, 0, 0};
    float position[3], target[3], up[3];
    copy(Position, position);
    copy(Target, target);
    copy(Up, up);
    auto const turn = [&](float degrees, float const* axis) {
        RotatePoint(position, degrees, center, axis, position);
        RotatePoint(target, degrees, center, axis, target);
        RotatePoint(up, degrees, origin, axis, up);
        RotatePoint(axes.right, degrees, origin, axis, axes.right);
    };
    turn(operation->right, axes.up);
    float right[3];
    copy(axes.right, right);
    turn(-operation->up, right);
    SetCamera(position, target, up);
}

void ACamera::Pan(ViewOpPan* operation)
{
    if (!operation) return;
    getCurrentCamera();
    float width = fieldHeight();
    float height = width;
    computeCameraFields(width, height);
    Frame const axes = frame();
    float position[3], target[3], up[3];
    copy(Position, position);
    copy(Target, target);
    copy(Up, up);
    for (float* point : {position, target}) {
        moveAlong(point, axes.right, width * operation->right);
        moveAlong(point, axes.up, height * operation->up);
    }
    SetCamera(position, target, up);
}

void ACamera::Zoom(ViewOpZoom* operation)
{
    if (!operation) return;
    if (!(operation->factor > 0)) return callerFault("ACamera::Zoom", std::to_string(operation->factor));
    getCurrentCamera();
    float position[3], target[3], up[3];
    copy(Target, target);
    copy(Up, up);
    Subtract(Position, Target, position);
    Multiply(position, 1.0 / operation->factor, position);
    Add(target, position, position);
    SetCamera(position, target, up);
}

void ACamera::SetAnimate(bool animate)
{
    animate_ = animate;
}

bool ACamera::GetAnimate()
{
    return animate_;
}

ACamera* ACamera::cloneTo(IView3D*) const
{
    return cloneTo(static_cast<IView3DEvo*>(nullptr));
}

void ACamera::copySettingsFrom(ACamera const& other)
{
    Orthographic = other.Orthographic;
    copy(other.Position, Position);
    copy(other.Target, Target);
    copy(other.Up, Up);
    fieldOfView_ = other.fieldOfView_;
    animate_ = other.animate_;
    rotationCenter_ = other.rotationCenter_;
}

void ACamera::SetOrthographic(bool orthographic)
{
    getCurrentCamera();
    Orthographic = orthographic;
    // The derived class brings its fields to the screen with the camera.
    float position[3], target[3], up[3];
    copy(Position, position);
    copy(Target, target);
    copy(Up, up);
    moveCamera(position, target, up);
}

Ray ACamera::Make3DRay(int const& x, int const& y, int const& aperture)
{
    getCurrentCamera();
    Frame const axes = frame();
    Ray ray;
    ray.perspective = !Orthographic;
    copy(Target, ray.origin);
    copy(axes.forward, ray.direction);
    int pixelWidth = 0, pixelHeight = 0;
    GetWindowSize(pixelWidth, pixelHeight);
    if (pixelWidth <= 0 || pixelHeight <= 0) return ray;

    float width = 0, height = 0;
    computeCameraFields(width, height);
    // The middle of the pixel, so that the way back through the projection ends in the same pixel.
    moveAlong(ray.origin, axes.right, width * ((x + 0.5) / pixelWidth - 0.5));
    moveAlong(ray.origin, axes.up, height * (0.5 - (y + 0.5) / pixelHeight));
    ray.aperture = height / static_cast<float>(pixelHeight) * static_cast<float>(aperture);
    if (ray.perspective) {
        Subtract(ray.origin, Position, ray.direction);
        if (!normalise(ray.direction)) copy(axes.forward, ray.direction);
    }
    return ray;
}

void ACamera::computeCameraFields(float& width, float& height)
{
    int pixelWidth = 0, pixelHeight = 0;
    GetWindowSize(pixelWidth, pixelHeight);
    if (pixelWidth <= 0 || pixelHeight <= 0) return;
    height = fieldHeight();
    width = height * static_cast<float>(pixelWidth) / static_cast<float>(pixelHeight);
}

float ACamera::fieldHeight() const
{
    float line[3];
    Subtract(Target, Position, line);
    return 2 * Length(line) * std::tan(fieldOfView_ / 2);
}

void ACamera::fitSphere(float const* center, float radius)
{
    float target[3], up[3], position[3];
    copy(center, target);
    getCurrentCamera();
    copy(Up, up);
    int width = 0, height = 0;
    GetWindowSize(width, height);
    double const aspect = width > 0 && height > 0 ? std::min(1.0, double(width) / height) : 1.0;
    double const halfTangent = std::tan(fieldOfView_ / 2) * aspect;
    // In perspective the sight lines touch the sphere in front of its centre.
    double distance = radius / (Orthographic ? halfTangent : std::sin(std::atan(halfTangent)));
    if (!(distance > 0)) { // a point has no size to fill the window with
        float line[3];
        Subtract(Target, Position, line);
        distance = Length(line);
    }
    copy(target, position);
    moveAlong(position, frame().forward, -distance);
    SetCamera(position, target, up);
}

ACamera::Frame ACamera::frame() const
{
    Frame result;
    Subtract(Target, Position, result.forward);
    if (!normalise(result.forward)) copy(std::array{-1.f, 0.f, 0.f}.data(), result.forward);
    cross(result.forward, Up, result.right);
    if (!normalise(result.right)) {
        // Up lies along the line of sight: the axis that is farthest from that line stands in for it.
        float axis[3] = {0, 0, 0};
        auto const lesser = [](float a, float b) { return std::abs(a) < std::abs(b); };
        axis[std::ranges::min_element(result.forward, lesser) - result.forward] = 1;
        cross(result.forward, axis, result.right);
        normalise(result.right);
    }
    cross(result.right, result.forward, result.up);
    return result;
}

} // namespace MoraCore
