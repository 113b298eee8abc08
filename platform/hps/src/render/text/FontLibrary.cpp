#include "FontLibrary.h"
#include <algorithm>
#include <array>
#include <filesystem>
#include <fontconfig/fontconfig.h>
#include <utility>

namespace HPS::render
{
namespace
{

namespace fs = std::filesystem;

std::string inSmallLetters(std::string_view text)
{
    std::string small(text);
    for (char& c : small)
        if (c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    return small;
}

constexpr std::array extensions{".ttf", ".otf", ".ttc", ".pfb", ".pfa", ".otc"};
constexpr char const* standardFamily = "DejaVu Sans";
// Symbols of drawings: the second has all of them.
constexpr std::array fallbackFamilies{"DejaVu Sans", "Symbola"};

struct PatternDeleter {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDeleter>;

/// What the system knows of fonts, and the fonts of the directories beside it.
FcConfig* configuration(std::vector<std::string> const& directories, std::uint32_t version)
{
    static FcConfig* config = nullptr;
    static std::uint32_t made = 0;
    if (config != nullptr && made == version) return config;
    if (config != nullptr) FcConfigDestroy(config);
    config = FcInitLoadConfigAndFonts();
    made = version;
    for (std::string const& directory : directories)
        FcConfigAppFontAddDir(config, reinterpret_cast<FcChar8 const*>(directory.c_str()));
    return config;
}

Pattern match(FcConfig* config, FcPattern* wanted)
{
    FcConfigSubstitute(config, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultNoMatch;
    return Pattern(FcFontMatch(config, wanted, &result));
}

std::pair<std::string, int> placeOf(FcPattern* pattern)
{
    FcChar8* file = nullptr;
    int face = 0;
    if (FcPatternGetString(pattern, FC_FILE, 0, &file) != FcResultMatch) return {};
    FcPatternGetInteger(pattern, FC_INDEX, 0, &face);
    return {reinterpret_cast<char const*>(file), face};
}

bool hasFamily(FcPattern* pattern, std::string const& name)
{
    FcChar8* family = nullptr;
    for (int i = 0; FcPatternGetString(pattern, FC_FAMILY, i, &family) == FcResultMatch; ++i)
        if (inSmallLetters(reinterpret_cast<char const*>(family)) == inSmallLetters(name)) return true;
    return false;
}

} // namespace

FontLibrary& FontLibrary::instance()
{
    static auto* const library = new FontLibrary; // as long-lived as what was drawn with it
    return *library;
}

void FontLibrary::setDirectories(std::vector<std::string> directories)
{
    if (directories == directories_) return;
    directories_ = std::move(directories);
    indexed_ = false;
    known_.clear();
    fallbacks_.clear();
    ++version_;
}

std::vector<std::string> FontLibrary::takeWarnings()
{
    return std::exchange(warnings_, {});
}

Font& FontLibrary::find(Request const& request)
{
    auto const [place, isNew] = known_.try_emplace(request);
    if (!isNew) return *place->second;
    Font* font = nullptr;
    if (!request.name.empty()) {
        font = byFile(request.name);
        if (font == nullptr) font = byFamily(request, false);
        if (font == nullptr) {
            std::string const text =
                "The font '" + request.name + "' is not found: '" + standardFamily + "' takes its place.";
            if (std::find(warnings_.begin(), warnings_.end(), text) == warnings_.end())
                warnings_.push_back(text);
        }
    }
    if (font == nullptr) font = byFamily({standardFamily, request.bold, request.italic}, false);
    if (font == nullptr) font = &standard();
    known_[request] = font;
    return *font;
}

Font& FontLibrary::standard()
{
    for (char const* name : {"DejaVuSans.ttf", "MRISO1.otf"})
        if (Font* const font = byFile(name)) return *font;
    if (Font* const font = byFamily({standardFamily, false, false}, true)) return *font;
    return boxes_;
}

Font* FontLibrary::byFile(std::string const& name)
{
    std::string const* file = fileNamed(name);
    for (auto extension = extensions.begin(); file == nullptr && extension != extensions.end(); ++extension)
        file = fileNamed(name + *extension);
    // The metrics of a font stand beside it.
    std::string const small = inSmallLetters(name);
    if (file == nullptr && small.ends_with(".pfm"))
        file = fileNamed(name.substr(0, name.size() - 4) + ".pfb");
    return file == nullptr ? nullptr : opened(*file, 0);
}

std::string const* FontLibrary::fileNamed(std::string const& name)
{
    index();
    auto const found = files_.find(inSmallLetters(fs::path(name).filename().string()));
    return found == files_.end() ? nullptr : &found->second;
}

void FontLibrary::index()
{
    if (indexed_) return;
    indexed_ = true;
    files_.clear();
    constexpr std::size_t most = 20'000; // a directory given by mistake must not hold up the program
    constexpr int deepest = 4;
    std::error_code error;
    for (std::string const& directory : directories_) {
        auto at =
            fs::recursive_directory_iterator(directory, fs::directory_options::skip_permission_denied, error);
        for (; !error && at != fs::recursive_directory_iterator() && files_.size() < most;
             at.increment(error)) {
            if (at.depth() >= deepest) at.disable_recursion_pending();
            std::error_code ignored;
            if (at->is_regular_file(ignored))
                files_.emplace(inSmallLetters(at->path().filename().string()), at->path().string());
        }
    }
}

Font* FontLibrary::byFamily(Request const& request, bool anyFamily)
{
    FcConfig* const config = configuration(directories_, version_);
    Pattern const wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<FcChar8 const*>(request.name.c_str()));
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, request.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    Pattern const found = match(config, wanted.get());
    if (found == nullptr || (!anyFamily && !hasFamily(found.get(), request.name))) return nullptr;
    auto const [file, face] = placeOf(found.get());
    return file.empty() ? nullptr : opened(file, face);
}

Font* FontLibrary::opened(std::string const& file, int face)
{
    auto const [place, isNew] = fonts_.try_emplace({file, face});
    if (isNew) {
        std::string failure;
        place->second = Font::open(file, face, failure);
        if (place->second == nullptr) warnings_.push_back(failure + " Another one takes its place.");
    }
    return place->second.get();
}

Font* FontLibrary::fontFor(char32_t character, Font& preferred)
{
    if (preferred.shows(character)) return &preferred;
    auto const [place, isNew] = fallbacks_.try_emplace(character);
    if (!isNew) return place->second;
    Font* font = nullptr;
    for (char const* family : fallbackFamilies) {
        Font* const candidate = byFamily({family, false, false}, false);
        if (candidate != nullptr && candidate->shows(character)) {
            font = candidate;
            break;
        }
    }
    if (font == nullptr) { // whatever font of the system has it
        Pattern const wanted(FcPatternCreate());
        std::unique_ptr<FcCharSet, decltype(&FcCharSetDestroy)> const characters(FcCharSetCreate(),
                                                                                 &FcCharSetDestroy);
        FcCharSetAddChar(characters.get(), character);
        FcPatternAddCharSet(wanted.get(), FC_CHARSET, characters.get());
        FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
        if (Pattern const found = match(configuration(directories_, version_), wanted.get())) {
            auto const [file, face] = placeOf(found.get());
            Font* const candidate = file.empty() ? nullptr : opened(file, face);
            if (candidate != nullptr && candidate->shows(character)) font = candidate;
        }
    }
    fallbacks_[character] = font;
    return font;
}

} // namespace HPS::render
