#pragma once
#include <cstdint>
#include <vector>

namespace HPS::render
{

/// What one canvas draws into: a multisampled framebuffer with depth and the single-sampled one it resolves
/// to. Every operation needs the device's context to be current.
class Target
{
public:
    Target() = default;
    ~Target();
    Target(Target const&) = delete;
    Target& operator=(Target const&) = delete;

    /// Sizes in pixels, at least 1. Contents are lost only when something changes.
    void resize(int width, int height, int samples);

    int width() const { return width_; }
    int height() const { return height_; }
    int samples() const { return samples_; } ///< of what is drawn into
    unsigned framebuffer() const { return drawn_; }
    /// Copies colours or depths, as OpenGL names them, into a framebuffer of the same size, of as many
    /// samples or, for one, resolved.
    void blitTo(unsigned framebuffer, unsigned what) const;

    void bind() const;

    // Between this and a part of another of equal samples, which begins at `left`, `bottom`.
    void copyFrom(Target const& other, int left, int bottom) const;
    void copyTo(Target const& other, int left, int bottom) const;

    /// Waits until all is drawn and brings it into the single-sampled image.
    void resolve() const;

    /// The resolved image, 4 bytes a pixel (red, green, blue, alpha), rows from the top down.
    void read(std::vector<std::uint8_t>& pixels) const;

private:
    void release();

    int width_ = 0, height_ = 0, samples_ = 0;
    unsigned drawn_ = 0, resolved_ = 0;
    unsigned colour_ = 0, depth_ = 0, resolvedColour_ = 0;
};

} // namespace HPS::render
