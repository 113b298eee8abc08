#pragma once

namespace ZELVizCore
{

/// Node of the host's content graph.
class Node
{
public:
    virtual ~Node() = default;

    /// First value of every tree path.
    static constexpr unsigned long long GetRootNodeId() { return 1; }
};

} // namespace ZELVizCore
