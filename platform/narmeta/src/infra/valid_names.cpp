#include "model_check.h"

#include <cstdio>

namespace NarMetaInfra
{

std::wstring ValidName(std::wstring const& name)
{
    constexpr std::size_t longest = 1000;
    std::wstring valid;
    valid.reserve(std::min(name.size(), longest));
    for (wchar_t c : name) {
        if (valid.size() == longest) break;
        auto const code = static_cast<unsigned long>(c);
        bool const broken = (code >= 0xd800 && code < 0xe000) || code > 0x10ffff || (code & 0xfffe) == 0xfffe;
        bool const control = code < 0x20 || (code >= 0x7f && code < 0xa0);
        valid += broken ? L'\ufffd' : control ? L' ' : c;
    }
    auto const first = valid.find_first_not_of(L' ');
    if (first == std::wstring::npos) return {};
    return valid.substr(first, valid.find_last_not_of(L' ') - first + 1);
}

std::wstring ValidPid(std::wstring const& pid)
{
    std::wstring valid;
    valid.reserve(pid.size());
    for (wchar_t c : pid) {
        if (c > L' ' && c < L'\x7f' && c != L'/' && c != L'\\' && c != L'%') {
            valid += c;
            continue;
        }
        wchar_t escaped[16];
        std::swprintf(escaped, std::size(escaped), L"%%{%lx}", static_cast<unsigned long>(c));
        valid += escaped;
    }
    return valid;
}

} // namespace NarMetaInfra
