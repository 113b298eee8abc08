#include "open_cascade_guard.h"

#include <iostream>

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <OSD.hxx>

namespace NarMetaInfra
{
KernelSession::KernelSession() : Output(std::cout.rdbuf(nullptr))
{
    for (std::size_t i = 0; i < Signals.size(); ++i) sigaction(Signals[i], nullptr, &Previous[i]);
    OSD::SetSignal(false);
    restore(0, BreakCount);
    Message::DefaultMessenger()->RemovePrinters(STANDARD_TYPE(Message_Printer));
}

KernelSession::~KernelSession()
{
    restore(0, Signals.size());
    std::cout.rdbuf(Output);
}

void KernelSession::restore(std::size_t first, std::size_t last)
{
    for (auto i = first; i < last; ++i) sigaction(Signals[i], &Previous[i], nullptr);
}

std::string failureText(Standard_Failure const& failure)
{
    std::string const text = failure.GetMessageString() ? failure.GetMessageString() : "";
    auto const* const kind = failure.DynamicType()->Name();
    // Messages of the signal handler carry the address and a stack trace on further lines.
    auto const line = text.substr(0, text.find('\n'));
    return line.empty() ? std::string(kind) : line;
}
} // namespace NarMetaInfra
