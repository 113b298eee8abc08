#pragma once

#include "hps_api.h"

#include <map>
#include <string>

namespace ZelVizBase
{

/// From a persistent id of the model to the key that stands for it in the scene. A persistent id is a number
/// (hashed ids of representations, bodies, faces) or a wide string (PIDs of references and instances); the
/// two forms are kept apart. The mapper owns no key's object: a key of a deleted segment stays in it until
/// removed.
class ZELObjectMapper
{
public:
    ZELObjectMapper();
    ~ZELObjectMapper();

    /// Sets the entry; a key that stood under `pid` is replaced.
    void Add(unsigned long long pid, HPS::Key& key);
    void Add(std::wstring pid, HPS::Key& key);

    /// False, with `key` left as it was, if there is no such entry. Logarithmic.
    bool Get(unsigned long long pid, HPS::Key& key) const;
    bool Get(std::wstring const& pid, HPS::Key& key) const;

    /// The lowest pid under which `key` stands; false leaves `pid` as it was. Linear: one comparison per
    /// entry.
    bool Get(HPS::Key key, unsigned long long& pid) const;
    bool Get(HPS::Key key, std::wstring& pid) const;

    void Remove(unsigned long long pid);
    void Remove(std::wstring const& pid);
    /// Removes one entry with this key: of the strings if there is one, else of the numbers.
    void Remove(HPS::Key key);

    void Clear();

private:
    bool doesPidExist(unsigned long long pid) const;
    bool doesPidExist(std::wstring const& pid) const;

    std::map<unsigned long long, HPS::Key> PidKeys;
    std::map<std::wstring, HPS::Key> StringKeys;
};

} // namespace ZelVizBase
