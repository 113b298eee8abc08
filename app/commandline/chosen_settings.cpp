#include "chosen_settings.h"

#include <mora/Settings.h>

namespace zelview
{

using ZELVizCore::Settings;

std::vector<std::wstring> loadSettings(Options const& options, std::wstring const& file)
{
    std::vector<std::wstring> warnings = Settings::Current().Load(file);
    applySettings(options);
    return warnings;
}

void applySettings(Options const& options)
{
    for (std::string const& setting : options.settings) Settings::Current().Assign(setting);
    if (options.graphical) Settings::Current().GraphicalMode = true;
}

} // namespace zelview
