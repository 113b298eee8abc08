#pragma once

#include "MainWindow.h"
#include "test_application.h"

#include <QFile>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// What the stand-in for a plug-in was asked for.
inline std::vector<std::string> calls()
{
    std::vector<std::string> list;
    for (QString const& call : qApp->property("calls").toStringList()) list.push_back(call.toStdString());
    return list;
}

/// The main window over the stand-in, with settings of its own.
class Window : public testing::Test
{
protected:
    Window()
    {
        needApplication();
        qApp->setProperty("calls", QStringList());
        QFile::remove(QString::fromStdWString(ZELVizCore::Settings::FilePath()));
        ZELVizCore::Settings::Current() = ZELVizCore::Settings();
        auto opened = zelview::Plugin::open();
        EXPECT_TRUE(std::holds_alternative<std::unique_ptr<zelview::Plugin>>(opened))
            << std::get<std::string>(opened);
        Loaded = std::get<std::unique_ptr<zelview::Plugin>>(std::move(opened));
        remake();
    }

    ~Window() override { Shown.reset(); }

    void remake(zelview::ViewChoice const& view = {})
    {
        Shown.reset();
        Shown = std::make_unique<zelview::MainWindow>(*Loaded, zelview::MainWindow::Start{view, true});
        Shown->show();
        Shown->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Shown.get()));
    }

    QString write(QString const& name, QByteArray const& words) const
    {
        QFile file(Folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(words);
        return file.fileName();
    }

    /// Opens and waits until all files are done; whether the last one is shown.
    bool open(QStringList const& paths, zelview::Placement placement = zelview::Placement::NewTab)
    {
        QSignalSpy spy(Shown.get(), &zelview::MainWindow::loaded);
        Shown->open(paths, placement);
        for (int i = 0; i < 500 && spy.count() < paths.size(); ++i) spy.wait(20);
        EXPECT_EQ(spy.count(), paths.size());
        return !spy.isEmpty() && spy.last()[1].toBool();
    }

    void press(zelview::Command command) { Shown->action(command)->trigger(); }

    QStringList messages(MoraCore::MessageType type)
    {
        QStringList texts;
        QString const kind = type == MoraCore::MessageType::Error ? "Error" : "Warning";
        zelview::MessageModel& model = Shown->messages();
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.index(row, zelview::MessageModel::KindColumn).data() == kind)
                texts << model.index(row, zelview::MessageModel::TextColumn).data().toString();
        return texts;
    }

    QString currentText() const
    {
        auto const* const tabs = Shown->findChild<QTabWidget*>();
        return tabs->tabText(tabs->currentIndex());
    }

    QTemporaryDir Folder;
    std::unique_ptr<zelview::Plugin> Loaded;
    std::unique_ptr<zelview::MainWindow> Shown;
};
