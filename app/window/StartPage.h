#pragma once

#include <QListWidget>

namespace zelview
{

/// What stands in an empty window: the files opened last, with their pictures.
class StartPage final : public QWidget
{
    Q_OBJECT

public:
    explicit StartPage(QWidget* parent = nullptr);

    void setFiles(QStringList const& paths);

signals:
    void openWanted();
    void chosen(QString const& path);

private:
    QListWidget* Files;
};

/// The picture of a file, or a drawing where there is none.
QIcon fileIcon(QString const& path);

} // namespace zelview
