#pragma once
#include <hps/GeometryKey.h>
#include <hps/MeshKit.h>

namespace HPS
{

// Points in rows and columns.
class MeshKey : public GeometryKeyOf<HPS::Type::MeshKey, MeshKit>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
    std::size_t GetPointCount() const;
    std::size_t GetFaceCount() const;
};

} // namespace HPS
