#pragma once
#include <bitset>
#include <hps/AttributeLockKit.h>

namespace HPS::scene
{

// The single things that can be locked, as bits. Lock types name one of them or a group.
namespace LockBit
{
inline constexpr std::size_t visibility = 0; // and on, in the order of VisibilityKinds
inline constexpr std::size_t colors = 23;    // and on, in the order of the plain colours of the locks
inline constexpr std::size_t colorCount = 9;
inline constexpr std::size_t surfaces = 32;    // and on: blocks of `surfaceBits`, in the order of Surface
inline constexpr std::size_t surfaceBits = 12; // in the order of MaterialData, and then the palette index
inline constexpr std::size_t surfaceIndex = 11;
inline constexpr std::size_t camera = 92;
inline constexpr std::size_t others = 93; // every kit without locks of its own
inline constexpr std::size_t count = 94;
} // namespace LockBit

enum class Surface : std::uint8_t { Vertex, Edge, BackFace, FrontFace, CutFace };
constexpr std::size_t surfaceBit(Surface surface)
{
    return LockBit::surfaces + static_cast<std::size_t>(surface) * LockBit::surfaceBits;
}

using LockSet = std::bitset<LockBit::count>;

// What a lock type covers; nothing for a number that is no lock type.
LockSet const& lockSet(AttributeLock::Type type);
// The union over the entries whose state is true.
LockSet lockSet(std::optional<LockEntries> const& entries);

} // namespace HPS::scene
