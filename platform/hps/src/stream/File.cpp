#include "NewFile.h"
#include "SceneExporter.h"
#include "SceneImporter.h"
#include "StreamTask.h"
#include "store.h"
#include <cerrno>
#include <cstring>

namespace HPS::Stream
{
namespace
{
using namespace scene;

// A scene that changed between two steps is begun again from its start.
Steps exportScene(std::filesystem::path name, KeyIndex segment, ExportOptionsKit options)
{
    ChangeCursor changes;
    std::vector<ChangeMark> marks;
    for (bool whole = false; !whole;) {
        changes.read(marks);
        auto const* const top = store().resolve<SegmentRecord>(segment);
        if (!top) throw IOException("there is no segment to export to " + name.string());
        NewFile file(name);
        SceneExporter exporter(file.out(), *top, options);
        auto steps = exporter.write();
        do {
            co_yield steps.done();
            if (changes.pending()) break;
            whole = !steps.next();
        } while (!whole);
        if (whole) file.finish();
    }
}

Steps importScene(std::filesystem::path name, ImportOptionsKit options)
{
    auto const fail = [&](std::string const& cause) { throw IOException(name.string() + cause); };
    if (!store().resolve<SegmentRecord>(options.Segment()))
        fail(" cannot be imported: there is no segment to import it into");
    errno = 0;
    std::ifstream in(name, std::ios::binary);
    if (!in || std::filesystem::is_directory(name))
        fail(" cannot be opened" + (errno ? ": " + std::string(std::strerror(errno)) : std::string()));
    co_yield 0;
    try {
        SceneImporter importer(options.Segment().Index(), options.Portfolio().Index());
        auto steps = importer.read(in);
        while (steps.next()) co_yield steps.done();
        importer.attach(options.AlternateRoot().Index());
    } catch (IOException const& error) {
        fail(std::string(": ") + error.what());
    } catch (std::bad_alloc const&) {
        fail(": needs more memory than there is");
    }
}

} // namespace

ExportNotifier File::Export(UTF8 const& name, SegmentKey const& segment, ExportOptionsKit const& options)
{
    if (name.Empty()) throw IOException("there is no name for the file to export to");
    return ExportNotifier(
        std::make_shared<StreamTask>(exportScene(name.Str(), segment.Index(), options), "Export failed: "));
}

ImportNotifier File::Import(UTF8 const& name, ImportOptionsKit const& options)
{
    return ImportNotifier(std::make_shared<StreamTask>(importScene(name.Str(), options), "Import failed: "));
}

} // namespace HPS::Stream
