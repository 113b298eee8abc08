// How long the window's thread is kept busy at one stretch while files are loaded, and what a tree of a
// hundred thousand nodes costs: window_heartbeat FILE...

#include "HostTree.h"
#include "MainWindow.h"
#include "TreePanel.h"
#include "TreeSearch.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <ctime>

using namespace zelview;

namespace
{

double milliseconds(QElapsedTimer const& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void report(char const* what, double value)
{
    std::printf("%-44s %8.1f ms\n", what, value);
}

/// The longest time between two beats.
class Heart : public QObject
{
public:
    Heart()
    {
        connect(&Timer, &QTimer::timeout, this, [this] {
            Longest = std::max(Longest, milliseconds(Since));
            Since.restart();
        });
        Timer.setTimerType(Qt::PreciseTimer);
        Timer.start(2);
        Since.start();
    }

    double takeLongest() { return std::exchange(Longest, 0); }

private:
    QTimer Timer;
    QElapsedTimer Since;
    double Longest = 0;
};

void measureTree()
{
    constexpr unsigned Count = 100'000;
    HostTree host;
    TreePanel panel(host);
    panel.resize(300, 600);
    panel.show();
    QElapsedTimer timer;
    timer.start();
    MoraCore::TreeBuilder& tree = host.GetTreeBuilder();
    tree.BeginTree();
    tree.BeginRoot(1, L"ROOT");
    for (unsigned i = 0; i < Count; ++i) {
        if (i % 100 == 0) tree.BeginAssembly(1'000'000 + i, L"Assembly " + std::to_wstring(i / 100));
        tree.BeginPart(2 + i, L"Part number " + std::to_wstring(i));
        tree.EndPart();
        if (i % 100 == 99) tree.EndAssembly();
    }
    tree.EndRoot();
    tree.EndTree();
    QApplication::processEvents();
    report("tree of 100,000 nodes filled", milliseconds(timer));
    TreeSearch search;
    search.collect(panel.model());
    for (char const* text : {"9", "part number 99", "part number 99999"}) {
        timer.restart();
        (void)search.find(text);
        report((std::string("search for '") + text + "'").c_str(), milliseconds(timer));
    }
    auto* const view = panel.findChild<QTreeView*>();
    view->expandAll();
    double worst = 0;
    for (int i = 0; i < 200; ++i) {
        timer.restart();
        view->scrollTo(panel.model().indexOf(static_cast<TreeModel::Position>(1 + i * 500)));
        QApplication::processEvents();
        worst = std::max(worst, milliseconds(timer));
    }
    report("slowest of 200 jumps in the open tree", worst);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication application(argc, argv);
    auto opened = Plugin::open();
    if (std::string const* const cause = std::get_if<std::string>(&opened)) {
        std::fprintf(stderr, "%s\n", cause->c_str());
        return 1;
    }
    auto const plugin = std::get<std::unique_ptr<Plugin>>(std::move(opened));
    MainWindow window(*plugin, {});
    window.show();
    QApplication::processEvents();
    report("processor time to an empty window", 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC);

    Heart heart;
    for (int i = 1; i < argc; ++i) {
        heart.takeLongest();
        QElapsedTimer timer;
        timer.start();
        bool ended = false;
        double reading = 0;
        auto const link = QObject::connect(&window, &MainWindow::loaded, [&] { ended = true; });
        window.open({QString::fromLocal8Bit(argv[i])}, Placement::NewTab);
        while (!ended) {
            if (double const now = heart.takeLongest(); window.isLoading()) reading = std::max(reading, now);
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        double const whole = milliseconds(timer);
        // The picture is made beside the window's thread, and what was put off until then follows.
        for (timer.restart(); timer.elapsed() < 3000;) QApplication::processEvents(QEventLoop::AllEvents, 10);
        QObject::disconnect(link);
        std::printf("%s\n", QFileInfo(argv[i]).fileName().toLocal8Bit().constData());
        report("  until it is shown", whole);
        report("  longest stretch while it is read", reading);
        report("  longest stretch while it is built and drawn", heart.takeLongest());
    }
    measureTree();
    return 0;
}
