#pragma once

#include <QDialog>

namespace zelview
{

/// The keys of all commands, by menu.
class KeySheet final : public QDialog
{
    Q_OBJECT

public:
    explicit KeySheet(QWidget* parent = nullptr);
};

} // namespace zelview
