#include <algorithm>
#include <hps/KeyPath.h>

namespace HPS
{

KeyPath& KeyPath::Append(KeyPath const& path)
{
    auto const added = path.keys_; // may be this path itself
    keys_.insert(keys_.end(), added.begin(), added.end());
    return *this;
}

KeyPath& KeyPath::PushFront(Key const& key)
{
    keys_.insert(keys_.begin(), key);
    return *this;
}

KeyPath& KeyPath::PushFront(KeyPath const& path)
{
    auto const added = path.keys_;
    keys_.insert(keys_.begin(), added.begin(), added.end());
    return *this;
}

KeyPath& KeyPath::PushBack(Key const& key)
{
    keys_.push_back(key);
    return *this;
}

KeyPath& KeyPath::PopFront()
{
    if (!keys_.empty()) keys_.erase(keys_.begin());
    return *this;
}

KeyPath& KeyPath::PopBack()
{
    if (!keys_.empty()) keys_.pop_back();
    return *this;
}

KeyPath& KeyPath::Reverse()
{
    std::reverse(keys_.begin(), keys_.end());
    return *this;
}

KeyPath& KeyPath::Reset()
{
    keys_.clear();
    return *this;
}

} // namespace HPS
