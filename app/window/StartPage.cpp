#include "StartPage.h"

#include "DrawnIcon.h"
#include "Thumbnails.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace zelview
{

QIcon fileIcon(QString const& path)
{
    QImage const picture = Thumbnails::find(path);
    if (!picture.isNull()) return QPixmap::fromImage(picture);
    static QIcon const none =
        drawnIcon("M 8 2 L 14 5 L 14 11 L 8 14 L 2 11 L 2 5 Z M 2 5 L 8 8 L 14 5 M 8 8 L 8 14");
    return none;
}

StartPage::StartPage(QWidget* parent) : QWidget(parent), Files(new QListWidget)
{
    auto* const open = new QPushButton(tr("Open a model…"));
    auto* const hint = new QLabel(tr("or drop a file here"));
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(open);
    row->addWidget(hint);
    row->addStretch();

    Files->setAccessibleName(tr("Files opened last"));
    Files->setViewMode(QListView::IconMode);
    Files->setIconSize({160, 120});
    Files->setGridSize({190, 160});
    Files->setResizeMode(QListView::Adjust);
    Files->setMovement(QListView::Static);
    Files->setFrameShape(QFrame::NoFrame);
    Files->setWordWrap(true);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(24, 24, 24, 24);
    column->addLayout(row);
    column->addWidget(Files, 1);
    setFocusProxy(open);
    connect(open, &QPushButton::clicked, this, &StartPage::openWanted);
    connect(Files, &QListWidget::itemActivated, this,
            [this](QListWidgetItem const* item) { emit chosen(item->data(Qt::UserRole).toString()); });
    connect(Files, &QListWidget::itemClicked, this,
            [this](QListWidgetItem const* item) { emit chosen(item->data(Qt::UserRole).toString()); });
}

void StartPage::setFiles(QStringList const& paths)
{
    Files->clear();
    for (QString const& path : paths) {
        if (!QFileInfo::exists(path)) continue;
        auto* const item = new QListWidgetItem(fileIcon(path), QFileInfo(path).fileName(), Files);
        item->setData(Qt::UserRole, path);
        item->setToolTip(path);
    }
    Files->setVisible(Files->count() > 0);
}

} // namespace zelview
