#pragma once
#include <hps/Kit.h>
#include <hps/MatrixKit.h>

namespace HPS
{

namespace Material::Texture
{
enum class Decimation : std::uint32_t { None = 0, Anisotropic = 1, Mipmap = 2 };
enum class Interpolation : std::uint32_t { None = 0, Bilinear = 1 };
// Where on a texture a point of a surface lies.
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
// What stands beside the image.
enum class Tiling : std::uint32_t { Clamp = 0, Repeat = 1, Reflect = 2, Trim = 3 };
} // namespace Material::Texture

struct TextureOptionsData {
    std::optional<bool> decal;
    std::optional<bool> downSampling;
    std::optional<bool> modulation;
    std::optional<unsigned int> parameterOffset;
    std::optional<Material::Texture::Parameterization> parameterizationSource;
    std::optional<Material::Texture::Tiling> tiling;
    std::optional<Material::Texture::Interpolation> interpolationFilter;
    std::optional<Material::Texture::Decimation> decimationFilter;
    std::optional<MatrixKit> transformMatrix;

    bool operator==(TextureOptionsData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Decal", &TextureOptionsData::decal},
                          Aspect{2, "DownSampling", &TextureOptionsData::downSampling},
                          Aspect{3, "Modulation", &TextureOptionsData::modulation},
                          Aspect{4, "ParameterOffset", &TextureOptionsData::parameterOffset},
                          Aspect{5, "ParameterizationSource", &TextureOptionsData::parameterizationSource},
                          Aspect{6, "Tiling", &TextureOptionsData::tiling},
                          Aspect{7, "InterpolationFilter", &TextureOptionsData::interpolationFilter},
                          Aspect{8, "DecimationFilter", &TextureOptionsData::decimationFilter},
                          Aspect{9, "TransformMatrix", &TextureOptionsData::transformMatrix}};
    }
};
static_assert(CompleteKit<TextureOptionsData>);

template <class Self> class TextureOptionsOperations : public Operations<Self>
{
public:
    using Data = TextureOptionsData;

    // The image covers the surface's colour where its alpha says so.
    HPS_ASPECT(Decal, bool, decal)
    HPS_ASPECT(DownSampling, bool, downSampling)
    // The image is multiplied with the surface's colour.
    HPS_ASPECT(Modulation, bool, modulation)
    // Which of a vertex's parameters is the first of the texture.
    HPS_ASPECT(ParameterOffset, unsigned int, parameterOffset)
    HPS_ASPECT(ParameterizationSource, Material::Texture::Parameterization, parameterizationSource)
    HPS_ASPECT(Tiling, Material::Texture::Tiling, tiling)
    HPS_ASPECT(InterpolationFilter, Material::Texture::Interpolation, interpolationFilter)
    HPS_ASPECT(DecimationFilter, Material::Texture::Decimation, decimationFilter)
    // Applied to the parameters.
    HPS_ASPECT(TransformMatrix, MatrixKit, transformMatrix)
};

// How an image lies on a surface.
class TextureOptionsKit : public Kit<TextureOptionsKit, TextureOptionsOperations>
{
public:
    // Repeated, along the vertices' own parameters, with bilinear interpolation; neither decal nor modulated,
    // and without a matrix.
    static TextureOptionsKit GetDefault();
};

} // namespace HPS
