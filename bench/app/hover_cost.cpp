// What a move of the mouse and a click cost in a view, beside a picture of the whole scene.
//
//     hover_cost [instances [triangles of a part]]     a lattice of 20 parts without their lines; 10000 and
//                                                  168 if left out
//     hover_cost file                                  a model file
#include "CadDocument.h"
#include "ViewInteraction.h"
#include "ZELView3D.h"
#include "lattice.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>

namespace
{

using ZelVizBase::ZELView3D;

struct Times {
    std::vector<double> all;
    std::uint64_t triangles = 0;

    void take(ZELView3D const& view, std::function<void()> const& work)
    {
        HPS::UpdateReport report;
        auto const start = std::chrono::steady_clock::now();
        work();
        view.Canvas().ShowUpdateReport(report); // which waits for the picture
        all.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        triangles = std::max(triangles, report.triangles);
    }
    void print(char const* what)
    {
        std::sort(all.begin(), all.end());
        double sum = 0;
        for (double const time : all) sum += time;
        std::printf("%-40s median %8.3f  mean %8.3f  longest %8.3f ms, at most %llu triangles drawn\n", what,
                    all[all.size() / 2], sum / static_cast<double>(all.size()), all.back(),
                    static_cast<unsigned long long>(triangles));
    }
};

void send(ZELView3D& view, QEvent::Type type, QPointF const& at, Qt::MouseButton button)
{
    Qt::MouseButtons const held = type == QEvent::MouseButtonPress ? button : Qt::NoButton;
    QMouseEvent event(type, at, view.mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &event);
}

void measure(ZELView3D& view, bool parallel)
{
    constexpr int moves = 40, pictures = 5;
    std::mt19937 random(2);
    auto const anywhere = [&] {
        return QPointF(std::uniform_int_distribution(0, view.width() - 1)(random),
                       std::uniform_int_distribution(0, view.height() - 1)(random));
    };
    ZelVizBase::ViewInteraction& hand = *view.GetInteraction();
    hand.SetHovering(false);
    HPS::UpdateReport settled;
    view.Canvas().ShowUpdateReport(settled);
    Times without, warm, hover, click, whole;
    for (int i = 0; i < moves; ++i)
        without.take(view, [&] { send(view, QEvent::MouseMove, anywhere(), Qt::NoButton); });
    hand.SetHovering(true);
    // The first two changes of a highlight draw the scene; from then on it is kept.
    for (int i = 0; i < 10; ++i)
        warm.take(view, [&] { send(view, QEvent::MouseMove, anywhere(), Qt::NoButton); });
    for (int i = 0; i < moves; ++i)
        hover.take(view, [&] { send(view, QEvent::MouseMove, anywhere(), Qt::NoButton); });
    for (int i = 0; i < moves; ++i)
        click.take(view, [&] {
            QPointF const at = anywhere();
            send(view, QEvent::MouseButtonPress, at, Qt::LeftButton);
            send(view, QEvent::MouseButtonRelease, at, Qt::LeftButton);
        });
    hand.ClearSelection();
    for (int i = 0; i < pictures; ++i) whole.take(view, [&] { view.Update(MoraCore::UpdateType::Complete); });
    std::printf("%s\n", parallel ? "parallel" : "perspective");
    without.print("a move, hovering off");
    hover.print("a move, hovering on");
    click.print("a click");
    whole.print("a picture of the whole scene");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    HPS::World world;
    MoraCore::AViewTree tree;
    ZelCad::CadDocument document(&tree);
    ZELView3D view;
    view.resize(1280, 720);
    view.AttachDocument(&document);
    if (argc > 1 && std::filesystem::exists(argv[1])) {
        if (!document.Open(std::filesystem::absolute(argv[1]).wstring().c_str())) return 1;
    } else {
        // Four million pieces of lines would be all that a picture is about.
        view.GetRenderingOptions()->SetDisplayEdges(false);
        int const instances = argc > 1 ? std::atoi(argv[1]) : 10000;
        int const triangles = argc > 2 ? std::atoi(argv[2]) : 168;
        if (instances < 1 || triangles < 1) return 1;
        bench::fillLattice(document.GetModel(), instances, triangles);
    }
    view.View().GetNavigationCubeControl().SetVisibility(false); // it lights up, too, and draws the scene
    view.show();
    QCoreApplication::processEvents();
    HPS::CameraKit camera;
    view.View().FitWorld();
    view.View().ShowCamera(camera);
    using HPS::Camera::Projection;
    for (Projection const projection : {Projection::Perspective, Projection::Orthographic}) {
        view.View().SetCamera(camera.SetProjection(projection));
        view.Update(MoraCore::UpdateType::Default);
        measure(view, projection == Projection::Orthographic);
    }
    return 0;
}
