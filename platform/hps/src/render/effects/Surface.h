#pragma once
#include "Target.h"
#include <vector>

namespace HPS::render
{

/// A rectangle of pixels, from the lower left corner.
struct PixelArea {
    int x = 0, y = 0, width = 0, height = 0;
};

/// Textures of one size that are drawn into and read from. They exist from the first `resize` to `release`,
/// so that an effect that is off holds no memory. Needs the device's context to be current.
class Surface
{
public:
    /// OpenGL's sized formats; a `depthFormat` of 0 means no depth.
    explicit Surface(std::vector<unsigned> colourFormats, unsigned depthFormat = 0);
    ~Surface();
    Surface(Surface const&) = delete;
    Surface& operator=(Surface const&) = delete;

    /// Sizes in pixels, at least 1. Contents are lost only when something changes.
    void resize(int width, int height, int samples = 1);
    void release();

    bool allocated() const { return framebuffer_ != 0; }
    int width() const { return width_; }
    int height() const { return height_; }
    unsigned framebuffer() const { return framebuffer_; }
    unsigned colour(std::size_t i = 0) const { return colours_[i]; }
    unsigned depth() const { return depth_; }

    /// To be drawn into, all of it or within an area.
    void bind() const;
    void bind(PixelArea const& area) const;
    /// To be read by the shaders under a number.
    void read(unsigned binding, std::size_t i = 0) const;
    void readDepth(unsigned binding) const;

private:
    std::vector<unsigned> formats_;
    unsigned depthFormat_;
    int width_ = 0, height_ = 0, samples_ = 0;
    unsigned framebuffer_ = 0, depth_ = 0;
    std::vector<unsigned> colours_;
};

/// The area with a rim. Software rendering resolves the rim of a scissored area from too few samples, so that
/// one is cleared and drawn but never shown.
PixelArea grown(PixelArea const& area, int width, int height);

/// A target, to be drawn into within an area.
void bindWithin(Target const& target, PixelArea const& area);

} // namespace HPS::render
