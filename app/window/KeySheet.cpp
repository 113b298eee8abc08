#include "KeySheet.h"

#include "commands.h"
#include "mouse_texts.h"

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

QTreeWidgetItem* addGroup(QTreeWidget& list, QString const& title)
{
    auto* const group = new QTreeWidgetItem(&list, {title});
    QFont bold = list.font();
    bold.setBold(true);
    group->setFont(0, bold);
    return group;
}

void addGestures(QTreeWidgetItem& group, std::vector<std::pair<QString, QString>> const& gestures)
{
    for (auto const& [what, gesture] : gestures) new QTreeWidgetItem(&group, {what, gesture});
}

} // namespace

KeySheet::KeySheet(MoraCore::MouseStyle const& style, QWidget* parent) : QDialog(parent)
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
            group = addGroup(*list, plainText(titleOf(row.menu)));
            shown = row.menu;
        }
        new QTreeWidgetItem(group, {plainText(row.text), keysOf(row)});
    }
    addGestures(*addGroup(*list, tr("Mouse")), commonGestures());
    for (MoraCore::MouseStyle const& known : MoraCore::MouseStyles) {
        bool const inUse = &known == &style;
        QString const name = inUse ? tr("%1 (in use)").arg(tr(known.name)) : tr(known.name);
        addGestures(*addGroup(*list, name), cameraGestures(known));
    }
    list->expandAll();
    list->resizeColumnToContents(0);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(list);
    column->addWidget(buttons);
    resize(540, 620);
}

} // namespace zelview
