// Imports whatever the fuzzer thinks of, as the unpacked chunks of a stream file: see unpacked.h. A file is
// refused with an IOException or read; all else is a fault.
#include "SceneImporter.h"
#include "structure.h"
#include "unpacked.h"
#include <sstream>

using namespace HPS::scene;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* bytes, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* bytes, std::size_t size)
{
    auto& target = createSegment(nullptr, {});
    try {
        std::istringstream in(packed(std::as_bytes(std::span(bytes, size))));
        SceneImporter importer(store().indexOf(target), {});
        for (auto steps = importer.read(in); steps.next();) {
        }
        importer.attach(store().indexOf(target));
    } catch (HPS::IOException const&) {
    }
    remove(target);
    return 0;
}
