#pragma once

#include <QTableView>
#include <QTreeWidget>

#include <mora/IDocumentEvo.h>

namespace zelview
{

class MessageModel;

/// The messages, the last one in sight; what is selected can be copied.
class MessagePanel final : public QTableView
{
    Q_OBJECT

public:
    /// @param model not owned
    explicit MessagePanel(MessageModel& model, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void copy();
};

/// What a document tells of one of its nodes.
class PropertyPanel final : public QTreeWidget
{
    Q_OBJECT

public:
    explicit PropertyPanel(QWidget* parent = nullptr);

    /// An empty id shows nothing.
    void show(MoraCore::IDocumentEvo const& document, ZELVizCore::RenderId const& id);
};

} // namespace zelview
