#pragma once
#include <mora/RGBAColor.h>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ZELVizCore
{

/// What the user has chosen for every view and reader of the process.
class Settings
{
public:
    RGBAColor BodyColor{168, 181, 198, 255};             ///< bodies and faces without a colour of their own
    RGBAColor EdgeColor{38, 44, 52, 255};                ///< curves and body edges
    RGBAColor TessEdgeColor{96, 106, 120, 255};          ///< edges of the tessellation's triangles
    RGBAColor VertexColor{24, 92, 160, 255};             ///< points and body vertices
    RGBAColor HighlightColor{255, 146, 36, 255};         ///< highlighted and selected geometry
    RGBAColor BackgroundTopColor{158, 173, 194, 255};    ///< upper end of the background gradient
    RGBAColor BackgroundBottomColor{244, 246, 249, 255}; ///< lower end of the background gradient
    bool GraphicalMode = false;                          ///< read meshes for display only, no bodies
    bool ReadPersistentNames = false;                    ///< keep the file's names of faces and edges
    bool UseOccurrenceData = true;      ///< let an occurrence override its part's colour and visibility
    int NumProcessors = 0;              ///< most processors a reader may use; 0: all of them
    bool UseMultiProcessing = true;     ///< false: a reader uses one processor
    bool DisplayFeaturesInTree = false; ///< list features below a part
    bool DisplayBrepInTree = false;     ///< list bodies below a part
    bool ClassicalOrientation = false;  ///< true: Y is up; false: Z is up
    int ReadTimeLimit = 600;            ///< seconds a guarded read may take; 0: no limit
    int ReadMemoryLimit = 0; ///< MiB a guarded read may take; 0: three quarters of the machine's memory
    /// Largest distance of triangles from an exact surface, in millionths of the part's extent.
    int TessellationDistance = 2000;
    int TessellationAngle = 18; ///< largest angle between neighbouring triangles, in degrees
    int CacheSize = 1024;       ///< MiB of read models kept for a second open; 0: none are kept

    /// The settings in force. A host may write to them.
    static Settings& Current();
    /// The settings as the program ships them.
    static Settings const& Default();

    /// Both spellings, Current().X and Current()->X, read a field.
    Settings* operator->() { return this; }
    Settings const* operator->() const { return this; }

    friend bool operator==(Settings const&, Settings const&) = default;

    using Member = std::variant<bool Settings::*, int Settings::*, RGBAColor Settings::*>;
    struct Field {
        char const* name;
        Member member;
        char const* description; ///< one line for the user
        int lowest = 0;          ///< whole numbers: the range that is accepted, both ends included
        int highest = 0;
    };
    /// One row for each field: load, save, the command line and a preferences dialog all go by it.
    static std::span<Field const> Fields();
    /// The row of that name, null when there is none.
    static Field const* FindField(std::string_view name);

    /// The value as text: "true", "4", "#a8b5c6ff".
    std::string GetText(Field const& field) const;
    /// Reads "true/false/on/off/yes/no/1/0", a whole number, or "#rrggbb" with or without a last "aa".
    /// False, and nothing changed, for a text that the field can't hold.
    bool SetText(Field const& field, std::string_view text);
    /// What SetText takes, in words: "true or false", "a whole number from 0 to 1024", "a colour as #rrggbb".
    static std::string ExpectedText(Field const& field);
    /// Sets a field by "Name=text". The result is empty, or the one-line cause why nothing was changed.
    std::string Assign(std::string_view assignment);

    /// File of the user's settings: zelview/settings.ini in the desktop's configuration folder
    /// (XDG_CONFIG_HOME).
    static std::wstring FilePath();
    /// Reads `path` (empty: FilePath()). A field that is absent or can't be read takes its default. The
    /// result holds one warning for each fault; then the file as found is kept beside itself with the ending
    /// ".damaged". A file that is absent is no fault.
    [[nodiscard]] std::vector<std::wstring> Load(std::wstring const& path = {});
    /// Writes all fields, creating folders as needed and replacing the file in one step; entries of the file
    /// that are not ours stay. The result is empty, or the one-line cause of the failure.
    [[nodiscard]] std::wstring Save(std::wstring const& path = {}) const;
};

} // namespace ZELVizCore
