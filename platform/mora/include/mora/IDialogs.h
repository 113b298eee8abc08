#pragma once
#include <string>

namespace MoraCore
{

/// Questions to the user. This one has nobody to ask: every question counts as cancelled.
class IDialogs
{
public:
    virtual ~IDialogs() = default;
    /// Fills `name` with the path of a file to write, starting from what it holds; false: cancelled, name
    /// untouched.
    virtual bool AskFileName(std::wstring& name);
};

} // namespace MoraCore
