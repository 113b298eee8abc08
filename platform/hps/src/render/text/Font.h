#pragma once
#include "OutlineFiller.h"
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

struct FT_FaceRec_;
struct hb_font_t;

namespace HPS::render
{

/// Heights over the baseline, in ems (1 is the size of the text).
struct FontMetrics {
    double ascender = 0.93, descender = -0.24, lineHeight = 1.17;
    double capHeight = 0.73;
    double underline = -0.11, strike = 0.26, stroke = 0.05; ///< middle of the bars, and their thickness
};

/// An outline font: a file opened for shaping and drawing. Sizes count in ems. One that is opened from
/// nothing has no glyph and draws a box for everything. For one thread at a time.
class Font
{
public:
    /// The glyph of what no font can show: an upright box.
    static constexpr std::uint32_t boxGlyph = 0xFFFFFFFF;
    static constexpr double boxAdvance = 0.6;

    Font();
    ~Font();
    Font(Font const&) = delete;
    Font& operator=(Font const&) = delete;

    /// `face` counts the fonts of a collection. Null if the file cannot be used: `failure` then says why.
    static std::unique_ptr<Font> open(std::string const& file, int face, std::string& failure);

    std::string const& file() const { return file_; }
    std::string const& family() const { return family_; }
    FontMetrics const& metrics() const { return metrics_; }
    bool bold() const { return bold_; }     ///< by design
    bool italic() const { return italic_; } ///< by design

    bool shows(char32_t character) const;

    /// For shaping; its positions divided by `shaperScale` are ems. Null for the font of boxes.
    hb_font_t* shaper() const { return shaper_; }
    double shaperScale() const { return scale_; }

    enum class Weight : std::uint8_t { Own, Emboldened };
    enum class Detail : std::uint8_t { Coarse, Fine };

    /// The filled outline, in ems from the glyph's origin; empty for a blank. Curves are off by 1/400 em, or
    /// 1/4000 if fine. Kept; valid as long as the font.
    FlatMesh const& mesh(std::uint32_t glyph, Weight weight, Detail detail);

private:
    struct Key {
        std::uint32_t glyph;
        Weight weight;
        Detail detail;
        bool operator==(Key const&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(Key const& key) const
        {
            return key.glyph * std::size_t(4) + std::size_t(key.weight) * 2 + std::size_t(key.detail);
        }
    };
    void readMetrics();
    FlatMesh makeMesh(Key const& key);

    std::string file_, family_;
    FT_FaceRec_* face_ = nullptr;
    hb_font_t* shaper_ = nullptr;
    double scale_ = 1; ///< units of outlines and positions in an em
    bool bold_ = false, italic_ = false;
    FontMetrics metrics_;
    std::unordered_map<Key, FlatMesh, KeyHash> meshes_;
};

} // namespace HPS::render
