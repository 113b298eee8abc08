#pragma once

namespace MoraCore
{

/// Weight of a message to the user.
enum class MessageType : int {
    Information = 0,
    Error = 2,
    Warning = 3,
};

} // namespace MoraCore
