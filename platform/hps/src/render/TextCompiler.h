#pragma once
#include "DrawList.h"
#include "TextLayout.h"
#include "TextLook.h"
#include "store.h"
#include <array>
#include <unordered_map>

namespace HPS::render
{

/// Layouts of texts, kept by the records that they belong to, so that a list made anew sets no text twice.
class TextLayouts
{
public:
    static TextLayouts& instance();
    TextLayout const& of(scene::SlotIndex slot, std::string const& text, TextStyle const& style);

private:
    struct Kept {
        std::string text;
        TextStyle style;
        std::uint32_t fonts; ///< version of the library
        TextLayout layout;
    };
    std::unordered_map<scene::SlotIndex, Kept> kept_;
};

/// Puts texts into a draw list: a record for each letter and bar. Needs the device's context to be current.
class TextCompiler
{
public:
    /// A size as an instance has it: in pixels, or as the flags tell.
    struct Size {
        float size = 1;
        std::uint32_t flags = 0; ///< `SizeInWorld`, `SizeInWindow`
    };

    /// `matrix` leads from the text's segment to the world; `sectionSet` cuts it.
    void add(DrawList& list, scene::SlotIndex slot, TextData const& text, TextLook const& look,
             Mat4 const& matrix, std::uint32_t sectionSet);

    /// The lines that `add` found to lead away from texts, in world coordinates, two points each.
    std::vector<std::array<Point, 2>> const& leaderLines() const { return leaderLines_; }
    void clearLeaderLines() { leaderLines_.clear(); }

private:
    /// At which sizes a drawing is shown, see Record.
    struct Shown {
        float from = 0, to = std::numeric_limits<float>::infinity();
        MeshRange fine{};
    };
    struct Ground;
    struct Paint {
        std::array<std::uint8_t, 4> colour;
        std::int16_t displacement = 0;
    };
    void draw(TextLayout const& layout, Ground const& ground, TextAttributeData const& attributes,
              Paint const& paint);
    void drawBackground(TextLayout const& layout, Ground const& ground, TextLook const& look);
    void addDrawing(struct DrawnGlyph const& drawing, Affine const& place, Ground const& ground,
                    Paint const& paint, Shown const& shown);
    void addLeaderLines(TextData const& text, TextLayout const& layout, Ground const& ground,
                        Mat4 const& matrix);

    DrawList* list_ = nullptr; ///< while `add` runs, as the next
    std::uint32_t sectionSet_ = 0;
    std::vector<std::array<Point, 2>> leaderLines_;
};

} // namespace HPS::render
