#include "KeySheet.h"

#include "commands.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace zelview
{
namespace
{

QString plainText(char const* text)
{
    return QString::fromUtf8(text).remove(QLatin1Char('&')).remove(QStringLiteral("…"));
}

QString keysOf(CommandRow const& row)
{
    QStringList shown;
    for (QString const& key : QString::fromLatin1(row.keys).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        shown << QKeySequence(key).toString(QKeySequence::NativeText);
    return shown.join(QStringLiteral(", "));
}

} // namespace

KeySheet::KeySheet(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Keys"));
    auto* const list = new QTreeWidget;
    list->setAccessibleName(tr("Keys of all commands"));
    list->setHeaderLabels({tr("Command"), tr("Keys")});
    list->setRootIsDecorated(false);
    QTreeWidgetItem* group = nullptr;
    Menu shown{};
    for (CommandRow const& row : commandTable()) {
        if (!*row.keys) continue;
        if (!group || shown != row.menu) {
            group = new QTreeWidgetItem(list, {plainText(titleOf(row.menu))});
            QFont bold = list->font();
            bold.setBold(true);
            group->setFont(0, bold);
            shown = row.menu;
        }
        new QTreeWidgetItem(group, {plainText(row.text), keysOf(row)});
    }
    list->expandAll();
    list->resizeColumnToContents(0);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(list);
    column->addWidget(buttons);
    resize(420, 560);
}

} // namespace zelview
