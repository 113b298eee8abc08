#include "Host.h"

#include "CadDocument.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QWheelEvent>
#include <cmath>
#include <dlfcn.h>
#include <stdexcept>

namespace
{

template <class Function> Function find(void* library, char const* name)
{
    auto const found = reinterpret_cast<Function>(dlsym(library, name));
    if (found == nullptr) throw std::runtime_error(dlerror());
    return found;
}

void* open(char const* path)
{
    void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error(dlerror());
    return library;
}

} // namespace

Host& Host::instance()
{
    static Host& host = *new Host; // views may outlive main
    return host;
}

Host::Host()
{
    void* const plugin = open(ZEL_PLUGIN);
    type = find<char const* (*)()>(plugin, "GetPluginType")();
    name = find<char const* (*)()>(plugin, "GetPluginName")();
    factory_.reset(find<MoraCore::APluginFactory* (*)()>(plugin, "CreatePlugin")());
    nameBefore = factory_->getName();
    factory_->describe();
    nameDescribed = factory_->getName();
    factory_->load();
}

std::unique_ptr<MoraCore::IDocumentEvo> makeDocument(MoraCore::AViewTree* tree)
{
    return std::make_unique<ZelCad::CadDocument>(tree);
}

QImage Window::picture() const
{
    HPS::Picture made;
    auto const* const document = static_cast<ZelCad::CadDocument const*>(document_.get());
    if (document == nullptr || !document->GetCanvas().ReadPixels(made)) return {};
    return QImage(made.pixels.data(), made.width, made.height, 4 * made.width, QImage::Format_RGBX8888)
        .copy();
}

Window::Window(std::string const& file)
{
    view_.reset(Host::instance().factory().createInstance("ZELView3D"));
    widget_.reset(view_->GetWidget());
    widget_->resize(width, height);
    if (!file.empty()) {
        document_ = makeDocument(&tree_);
        view_->AttachDocument(document_.get());
        opened_ = document_->Open(std::wstring(file.begin(), file.end()).c_str());
    }
    widget_->show();
    runEvents(50);
}

Window::~Window() = default;

void Window::press(Qt::MouseButton button, QPointF const& at, Qt::KeyboardModifiers held)
{
    QMouseEvent event(QEvent::MouseButtonPress, at, widget_->mapToGlobal(at), button, button, held);
    QCoreApplication::sendEvent(widget_.get(), &event);
}

void Window::moveTo(QPointF const& at, Qt::MouseButtons held)
{
    QMouseEvent event(QEvent::MouseMove, at, widget_->mapToGlobal(at), Qt::NoButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(widget_.get(), &event);
}

void Window::release(Qt::MouseButton button, QPointF const& at)
{
    QMouseEvent event(QEvent::MouseButtonRelease, at, widget_->mapToGlobal(at), button, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget_.get(), &event);
}

void Window::wheel(QPointF const& at, int delta)
{
    QWheelEvent event(at, widget_->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget_.get(), &event);
}

float Pose::distance() const
{
    return std::hypot(position[0] - target[0], position[1] - target[1], position[2] - target[2]);
}

Triple Pose::back() const
{
    float const length = distance();
    return {(position[0] - target[0]) / length, (position[1] - target[1]) / length,
            (position[2] - target[2]) / length};
}

std::string sampleFile()
{
    return ZEL_SOURCE_DIR "/samples/machine.zel_xml";
}

void runEvents(int milliseconds)
{
    QElapsedTimer passed;
    passed.start();
    do QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    while (passed.elapsed() < milliseconds);
}
