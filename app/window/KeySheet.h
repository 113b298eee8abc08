#pragma once

#include <QDialog>

#include <mora/mouse_styles.h>

namespace zelview
{

/// The keys of all commands, by menu, and what the mouse does.
class KeySheet final : public QDialog
{
    Q_OBJECT

public:
    /// @param style of the mouse that is in use
    explicit KeySheet(MoraCore::MouseStyle const& style, QWidget* parent = nullptr);
};

} // namespace zelview
