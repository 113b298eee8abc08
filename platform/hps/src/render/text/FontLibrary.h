#pragma once
#include "Font.h"
#include <map>
#include <span>
#include <string_view>
#include <vector>

namespace HPS::render
{

/// All fonts of the process, found by the name of a file in the font directories or by family, opened when
/// first asked for and kept. Every name gives some font: what is missing or damaged is replaced, and a
/// warning says so once. For one thread at a time.
class FontLibrary
{
public:
    static FontLibrary& instance();

    /// Searched in order, with what lies below them. Fonts that are open stay valid.
    void setDirectories(std::vector<std::string> directories);

    struct Request {
        std::string name; ///< file with or without its extension, or family; empty: the default font
        bool bold = false, italic = false;
        auto operator<=>(Request const&) const = default;
    };
    Font& find(Request const& request);

    /// A font that has the character: `preferred` if it does, else another; null if none has.
    Font* fontFor(char32_t character, Font& preferred);

    /// What was replaced since the last call; for the user.
    std::vector<std::string> takeWarnings();

    /// Grows whenever a name may mean another font than before.
    std::uint32_t version() const { return version_; }

private:
    FontLibrary() = default;
    Font* byFile(std::string const& name);
    Font* byFamily(Request const& request, bool anyFamily);
    Font* opened(std::string const& file, int face);
    Font& standard();
    void index();
    std::string const* fileNamed(std::string const& name);

    std::vector<std::string> directories_;
    bool indexed_ = false;
    std::map<std::string, std::string> files_;                           ///< path by name in small letters
    std::map<std::pair<std::string, int>, std::unique_ptr<Font>> fonts_; ///< null: cannot be used
    std::map<Request, Font*> known_;
    std::unordered_map<char32_t, Font*> fallbacks_;
    std::vector<std::string> warnings_;
    std::uint32_t version_ = 0;
    Font boxes_; ///< where there is no font at all
};

} // namespace HPS::render
