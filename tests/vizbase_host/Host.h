#pragma once

#include <QImage>
#include <QWidget>
#include <array>
#include <memory>
#include <mora/ACamera.h>
#include <mora/APluginFactory.h>
#include <mora/AViewTree.h>
#include <mora/IDocumentEvo.h>
#include <mora/IView3DEvo.h>
#include <mora/Settings.h>
#include <string>

/// Starts the plug-in as any host does, once a process, and makes views and documents with it.
class Host
{
public:
    static Host& instance();

    MoraCore::APluginFactory& factory() { return *factory_; }

    char const* type = nullptr;            ///< that the plug-in says it makes
    char const* name = nullptr;            ///< that it says it has
    std::string nameBefore, nameDescribed; ///< of the factory

private:
    Host();

    std::unique_ptr<MoraCore::APluginFactory> factory_;
};

/// A document in a view in a window of its own.
class Window
{
public:
    static constexpr int width = 640, height = 480;

    /// `file` empty: no document.
    explicit Window(std::string const& file);
    ~Window();

    MoraCore::IView3DEvo& view() { return *view_; }
    MoraCore::ACamera& camera() { return *view_->GetCamera(); }
    MoraCore::IDocumentEvo& document() { return *document_; }
    MoraCore::AViewTree const& tree() const { return tree_; }
    QWidget& widget() { return *widget_; }
    /// That the view of a document made last; null without a document.
    QImage picture() const;
    bool opened() const { return opened_; }

    void press(Qt::MouseButton button, QPointF const& at, Qt::KeyboardModifiers held = {});
    void moveTo(QPointF const& at, Qt::MouseButtons held = {});
    void release(Qt::MouseButton button, QPointF const& at);
    void wheel(QPointF const& at, int delta);

private:
    MoraCore::AViewTree tree_;
    std::unique_ptr<MoraCore::IDocumentEvo> document_; ///< outlives the view that shows it
    std::unique_ptr<MoraCore::IView3DEvo> view_;
    std::unique_ptr<QWidget> widget_;
    bool opened_ = false;
};

using Triple = std::array<float, 3>;

/// A camera as it is now.
struct Pose {
    Triple position{}, target{}, up{};
    explicit Pose(MoraCore::ACamera& camera) { camera.GetCamera(position.data(), target.data(), up.data()); }
    float distance() const;
    /// From the target to the eye, length 1.
    Triple back() const;
};

/// @param tree must outlive the document; null: none
std::unique_ptr<MoraCore::IDocumentEvo> makeDocument(MoraCore::AViewTree* tree = nullptr);
/// The sample that lies in the repository.
std::string sampleFile();
/// Runs what waits in the application's queue, for so long.
void runEvents(int milliseconds);
