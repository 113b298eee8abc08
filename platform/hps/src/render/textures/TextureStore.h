#pragma once
#include "Texture.h"
#include "portfolio_record.h"
#include <map>
#include <set>
#include <string>
#include <vector>

namespace HPS::render
{

/// A texture with the way in which it is read.
struct Sampled {
    TexturePointer texture;
    unsigned sampler = 0; ///< as long-lived as the device
    bool cube = false;

    friend bool operator==(Sampled const&, Sampled const&) = default;
};

/// The textures of the process, by the images that they are made of: an image that several textures or
/// scenes use lies in the device's memory once, and a new definition is a new image. Needs the device's
/// context to be current.
class TextureStore
{
public:
    static TextureStore& instance();

    /// What a texture definition shows. `name` is for the warning that tells of a missing or damaged image;
    /// the texture is a placeholder then.
    Sampled flat(scene::Texture const& definition, std::string const& name);

    /// The same for a cube map. A side without an image is the placeholder alone.
    Sampled cube(scene::CubeMap const& definition, std::string const& name);

    /// What is drawn for a name that no portfolio defines, with a warning at its first use.
    Sampled missing(std::string const& name);

    unsigned sampler(TextureOptionsKit const& options);

    /// Gives back the textures of images that no portfolio holds any more and no draw list uses.
    void sweep();

    TextureStore(TextureStore const&) = delete;
    TextureStore& operator=(TextureStore const&) = delete;

private:
    template <class T> friend T& ofContext();
    struct Key {
        std::vector<std::weak_ptr<ImageKit const>> images; ///< keep the addresses from being used again
        bool shrunk = false, levels = false;
    };
    struct Before {
        bool operator()(Key const& a, Key const& b) const;
    };
    TextureStore() = default;
    Texels read(scene::ImagePointer const& image, bool shrunk, std::string const& name);
    template <class Make> TexturePointer find(Key&& key, Make const& make);
    void warnOnce(std::string const& message);

    std::map<Key, TexturePointer, Before> textures_;
    TexturePointer placeholder_;
    std::map<std::uint32_t, unsigned> samplers_; ///< by the options packed
    std::set<std::string> warned_;
};

} // namespace HPS::render
