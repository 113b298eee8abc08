#pragma once

#include <narmeta/infra/ZELProductStructure.h>

namespace NarMetaInfra
{

/// Makes whatever a reader filled fit for the rest of the system and says in @p warnings what had to give
/// way: instances that would put an assembly into itself, or that have no place in space, go; so do faces,
/// edges and vertices without extent or with numbers that are none; PIDs become unique printable ASCII
/// without '/' and '\\', names valid text. Each kind of fault gives one warning with its count and an
/// example.
void CheckModel(ZELProductStructure& model, std::vector<std::wstring>& warnings);

/// The text without control characters and broken characters, cut at 1000 characters.
std::wstring ValidName(std::wstring const& name);

/// Printable ASCII without '/' and '\\': other characters as '%' and their number in hexadecimal, in braces.
std::wstring ValidPid(std::wstring const& pid);

} // namespace NarMetaInfra
