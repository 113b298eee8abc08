#include "TextureStore.h"
#include "of_context.h"
#include "subscriptions.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

using Material::Texture::Decimation;
using Material::Texture::Interpolation;
using Material::Texture::Tiling;

// The longest side of an image that may be shown in fewer pixels: finer than what a window shows of it.
constexpr unsigned enoughPixels = 2048;
constexpr float anisotropy = 8;

/// Never null: what is not defined has an image without pixels.
scene::ImagePointer imageOf(ImageDefinition const& definition)
{
    static auto const none = std::make_shared<ImageKit const>();
    auto const* const found =
        scene::definitionIn<Type::ImageDefinition>(definition.Portfolio().Index(), definition.Name().Str());
    return found != nullptr ? *found : none;
}

Decimation decimationOf(TextureOptionsKit const& options)
{
    return options.data().decimationFilter.value_or(Decimation::None);
}

unsigned largestSide(GLenum kind)
{
    GLint side = 0;
    glGetIntegerv(kind, &side);
    return unsigned(std::max(side, 1));
}

GLenum wrapOf(Tiling tiling)
{
    switch (tiling) {
    case Tiling::Clamp:
    case Tiling::Trim: // what lies outside is left out by the shader
        return GL_CLAMP_TO_EDGE;
    case Tiling::Repeat:
        return GL_REPEAT;
    case Tiling::Reflect:
        return GL_MIRRORED_REPEAT;
    }
    return GL_REPEAT;
}

unsigned makeSampler(Tiling tiling, Interpolation interpolation, Decimation decimation)
{
    unsigned name = 0;
    glCreateSamplers(1, &name);
    bool const smooth = interpolation == Interpolation::Bilinear, levels = decimation != Decimation::None;
    GLenum const plain = smooth ? GL_LINEAR : GL_NEAREST;
    GLenum const withLevels = smooth ? GL_LINEAR_MIPMAP_LINEAR : GL_NEAREST_MIPMAP_NEAREST;
    glSamplerParameteri(name, GL_TEXTURE_MAG_FILTER, GLint(plain));
    glSamplerParameteri(name, GL_TEXTURE_MIN_FILTER, GLint(levels ? withLevels : plain));
    if (decimation == Decimation::Anisotropic)
        glSamplerParameterf(name, GL_TEXTURE_MAX_ANISOTROPY_EXT, anisotropy);
    for (GLenum const axis : {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T, GL_TEXTURE_WRAP_R})
        glSamplerParameteri(name, axis, GLint(wrapOf(tiling)));
    return name;
}

} // namespace

bool TextureStore::Before::operator()(Key const& a, Key const& b) const
{
    if (a.shrunk != b.shrunk) return a.shrunk < b.shrunk;
    if (a.levels != b.levels) return a.levels < b.levels;
    return std::lexicographical_compare(a.images.begin(), a.images.end(), b.images.begin(), b.images.end(),
                                        std::owner_less<std::weak_ptr<ImageKit const>>());
}

TextureStore& TextureStore::instance()
{
    return ofContext<TextureStore>();
}

void TextureStore::warnOnce(std::string const& message)
{
    if (warned_.insert(message).second) scene::raiseWarning(UTF8(message));
}

Texels TextureStore::read(scene::ImagePointer const& image, bool shrunk, std::string const& name)
{
    auto texels = texelsOf(*image);
    if (!texels) {
        warnOnce("Texture \"" + name + "\" is shown without its image: " +
                 (image->Empty() ? "there is none" : "its bytes are not what they are said to be"));
        return placeholderTexels();
    }
    shrunk = shrunk && image->data().downSampling.value_or(true);
    unsigned const possible = largestSide(GL_MAX_TEXTURE_SIZE);
    shrink(*texels, shrunk ? std::min(enoughPixels, possible) : possible);
    return *texels;
}

template <class Make> TexturePointer TextureStore::find(Key&& key, Make const& make)
{
    auto const [found, isNew] = textures_.try_emplace(std::move(key));
    if (isNew) found->second = make();
    return found->second;
}

Sampled TextureStore::flat(scene::Texture const& definition, std::string const& name)
{
    scene::ImagePointer const image = imageOf(definition.image);
    bool const shrunk = definition.options.data().downSampling.value_or(true);
    bool const levels = decimationOf(definition.options) != Decimation::None;
    return {find({{image}, shrunk, levels},
                 [&] {
                     Texels texels = read(image, shrunk, name);
                     turnUpsideDown(texels);
                     return std::make_shared<Texture const>(texels, levels);
                 }),
            sampler(definition.options)};
}

Sampled TextureStore::cube(scene::CubeMap const& definition, std::string const& name)
{
    bool const shrunk = definition.options.data().downSampling.value_or(true);
    bool const levels = decimationOf(definition.options) != Decimation::None;
    Key key{{}, shrunk, levels};
    std::array<scene::ImagePointer, 6> images;
    for (std::size_t i = 0; i < images.size(); ++i) {
        images[i] = imageOf(definition.images[i]);
        key.images.emplace_back(images[i]);
    }
    auto make = [&] {
        std::array<Texels, 6> sides;
        unsigned side = 1;
        for (std::size_t i = 0; i < images.size(); ++i) {
            sides[i] = read(images[i], shrunk, name);
            side = std::max({side, sides[i].width, sides[i].height});
        }
        side = std::min(side, largestSide(GL_MAX_CUBE_MAP_TEXTURE_SIZE));
        for (Texels& texels : sides) texels = squared(texels, side);
        return std::make_shared<Texture const>(sides, levels);
    };
    // A sky has no rim: its sides are read as one surface.
    glEnable(GL_TEXTURE_CUBE_MAP_SEAMLESS);
    return {find(std::move(key), make), sampler(definition.options), true};
}

Sampled TextureStore::missing(std::string const& name)
{
    if (placeholder_ == nullptr) placeholder_ = std::make_shared<Texture const>(placeholderTexels(), false);
    warnOnce("Texture \"" + name + "\" is not defined in any portfolio within reach");
    return {placeholder_, sampler(TextureOptionsKit::GetDefault())};
}

unsigned TextureStore::sampler(TextureOptionsKit const& options)
{
    auto const& data = options.data();
    auto const tiling = data.tiling.value_or(Tiling::Repeat);
    auto const interpolation = data.interpolationFilter.value_or(Interpolation::Bilinear);
    auto const decimation = decimationOf(options);
    unsigned& name = samplers_[std::uint32_t(wrapOf(tiling)) << 4 | std::uint32_t(interpolation) << 2 |
                               std::uint32_t(decimation)];
    if (name == 0) name = makeSampler(tiling, interpolation, decimation);
    return name;
}

void TextureStore::sweep()
{
    std::erase_if(textures_, [](auto const& entry) {
        auto const& [key, texture] = entry;
        bool const gone = std::any_of(key.images.begin(), key.images.end(),
                                      [](auto const& image) { return image.expired(); });
        return gone && texture.use_count() == 1;
    });
}

} // namespace HPS::render
