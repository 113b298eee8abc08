#pragma once

#include <string>
#include <vector>

namespace NarMeta
{

/// What somebody noted about an object under a name of his own choice, as text for the user.
struct Property {
    std::wstring name;
    std::wstring value;

    bool operator==(Property const&) const = default;
};
using Properties = std::vector<Property>;

} // namespace NarMeta
