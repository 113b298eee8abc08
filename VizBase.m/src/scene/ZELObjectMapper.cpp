#include "ZELObjectMapper.h"

#include <algorithm>
#include <utility>

namespace ZelVizBase
{

namespace
{

template <class Pid> bool findKey(std::map<Pid, HPS::Key> const& keys, Pid const& pid, HPS::Key& key)
{
    auto const found = keys.find(pid);
    if (found == keys.end()) return false;
    key = found->second;
    return true;
}

template <class Pid> bool findPid(std::map<Pid, HPS::Key> const& keys, HPS::Key const& key, Pid& pid)
{
    auto const found =
        std::find_if(keys.begin(), keys.end(), [&key](auto const& entry) { return entry.second == key; });
    if (found == keys.end()) return false;
    pid = found->first;
    return true;
}

} // namespace

ZELObjectMapper::ZELObjectMapper()
{
    Clear();
}

ZELObjectMapper::~ZELObjectMapper()
{
    Clear();
}

void ZELObjectMapper::Add(unsigned long long pid, HPS::Key& key)
{
    PidKeys.insert_or_assign(pid, key);
}

void ZELObjectMapper::Add(std::wstring pid, HPS::Key& key)
{
    StringKeys.insert_or_assign(std::move(pid), key);
}

bool ZELObjectMapper::Get(unsigned long long pid, HPS::Key& key) const
{
    return findKey(PidKeys, pid, key);
}

bool ZELObjectMapper::Get(std::wstring const& pid, HPS::Key& key) const
{
    return findKey(StringKeys, pid, key);
}

bool ZELObjectMapper::Get(HPS::Key key, unsigned long long& pid) const
{
    return findPid(PidKeys, key, pid);
}

bool ZELObjectMapper::Get(HPS::Key key, std::wstring& pid) const
{
    return findPid(StringKeys, key, pid);
}

void ZELObjectMapper::Remove(unsigned long long pid)
{
    if (doesPidExist(pid)) PidKeys.erase(pid);
}

void ZELObjectMapper::Remove(std::wstring const& pid)
{
    if (doesPidExist(pid)) StringKeys.erase(pid);
}

void ZELObjectMapper::Remove(HPS::Key key)
{
    std::wstring text;
    if (Get(key, text)) {
        Remove(text);
        return;
    }
    unsigned long long number = 0;
    if (Get(key, number)) Remove(number);
}

void ZELObjectMapper::Clear()
{
    PidKeys.clear();
    StringKeys.clear();
}

bool ZELObjectMapper::doesPidExist(unsigned long long pid) const
{
    return PidKeys.contains(pid);
}

bool ZELObjectMapper::doesPidExist(std::wstring const& pid) const
{
    return StringKeys.contains(pid);
}

} // namespace ZelVizBase
