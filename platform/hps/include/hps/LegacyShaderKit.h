#pragma once
#include <hps/Kit.h>
#include <hps/MatrixKit.h>

namespace HPS
{

namespace LegacyShader
{
enum class Parameterization : std::uint32_t {
    Cylinder = 0,
    PhysicalReflection = 1,
    Object = 2,
    NaturalUV = 3,
    ReflectionVector = 4,
    SurfaceNormal = 5,
    Sphere = 6,
    UV = 7,
    World = 8
};
}

struct LegacyShaderData {
    std::optional<UTF8> source;
    std::optional<bool> multitexture;
    std::optional<LegacyShader::Parameterization> parameterizationSource;
    std::optional<MatrixKit> transformMatrix;

    bool operator==(LegacyShaderData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{
            Aspect{1, "Source", &LegacyShaderData::source},
            Aspect{2, "Multitexture", &LegacyShaderData::multitexture},
            Aspect{3, "ParameterizationSource", &LegacyShaderData::parameterizationSource},
            Aspect{4, "TransformMatrix", &LegacyShaderData::transformMatrix},
        };
    }
};
static_assert(CompleteKit<LegacyShaderData>);

template <class Self> class LegacyShaderOperations : public Operations<Self>
{
public:
    using Data = LegacyShaderData;

    HPS_ASPECT(Source, UTF8, source)
    HPS_ASPECT(Multitexture, bool, multitexture)
    HPS_ASPECT(ParameterizationSource, LegacyShader::Parameterization, parameterizationSource)
    HPS_ASPECT(TransformMatrix, MatrixKit, transformMatrix)
};

// A program that colours surfaces, as text. It is kept with the scene; what draws today does not run it.
class LegacyShaderKit : public Kit<LegacyShaderKit, LegacyShaderOperations>
{
};

} // namespace HPS
