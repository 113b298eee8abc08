#include "shared_kits.h"
#include "kit_values.h"
#include <algorithm>
#include <unordered_map>

namespace HPS::scene
{
namespace
{

// All blocks of one kind in use, by the hash of their values, and some that nobody uses any more.
class Blocks
{
public:
    template <class Data> KitPointer share(Data&& values)
    {
        auto const hash = hashValue(values);
        auto const [first, last] = blocks_.equal_range(hash);
        for (auto at = first; at != last; ++at)
            if (valuesOf<Data>(at->second.get()) == values) return at->second;
        if (blocks_.size() >= sweepAt_) sweep();
        return blocks_.emplace(hash, std::make_shared<KitBlockOf<Data> const>(std::move(values), true))
            ->second;
    }

private:
    // A sweep comes as often as the blocks double, so that it costs each new block a fixed share.
    void sweep()
    {
        std::erase_if(blocks_, [](auto const& entry) { return entry.second.use_count() == 1; });
        sweepAt_ = std::max(fewest, 2 * blocks_.size());
    }

    static constexpr std::size_t fewest = 1024;
    std::unordered_multimap<std::size_t, KitPointer> blocks_;
    std::size_t sweepAt_ = fewest;
};

} // namespace

template <class Data> KitPointer sharedKit(Data&& values)
{
    static Blocks& blocks = *new Blocks; // one for each kind; for what is set after main()
    return values == valuesOf<Data>(nullptr) ? nullptr : blocks.share(std::move(values));
}

#define HPS_DEFINE_SHARED(Name) template KitPointer sharedKit<Name##Data>(Name##Data &&);
HPS_ALL_KITS(HPS_DEFINE_SHARED)
#undef HPS_DEFINE_SHARED

} // namespace HPS::scene
