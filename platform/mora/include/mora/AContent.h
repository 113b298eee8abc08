#pragma once
#include <string>

namespace MoraCore
{

/// Something that content renderers can show.
class AContent
{
public:
    virtual ~AContent() = default;
    virtual std::wstring GetName() const = 0;
};

} // namespace MoraCore
