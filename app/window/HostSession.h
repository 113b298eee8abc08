#pragma once

#include <mora/SessionMgr.h>

class QWidget;

namespace zelview
{

/// The host's manager while the window is open: its dialogs ask the user.
class HostSession final : public MoraCore::SessionMgr, private MoraCore::IDialogs
{
public:
    /// Becomes the process-wide manager until it goes.
    /// @param parent of the dialogs; not owned, must outlive this
    explicit HostSession(QWidget& parent);
    ~HostSession() override;

    MoraCore::IDialogs* Dialogs() override { return this; }
    std::wstring MaterialLibraryDirectory() override;

private:
    bool AskFileName(std::wstring& name) override;

    QWidget& Parent;
};

} // namespace zelview
