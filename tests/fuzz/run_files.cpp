// Feeds the files and folders of the command line to a fuzz target, where no fuzzer is linked: what was once
// found stays a test with any compiler. Each is also changed at random so many times as the first argument
// says.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* bytes, std::size_t size);

namespace
{
using Bytes = std::vector<std::uint8_t>;

void change(Bytes& bytes, std::mt19937& random)
{
    for (auto count = 1 + random() % 4; count > 0 && !bytes.empty(); --count) {
        auto const at = static_cast<std::ptrdiff_t>(random() % bytes.size());
        auto const length = std::min<std::ptrdiff_t>(1 + random() % 8, std::ssize(bytes) - at);
        switch (random() % 4) {
        case 0:
            bytes[static_cast<std::size_t>(at)] ^= static_cast<std::uint8_t>(1 << random() % 8);
            break;
        case 1:
            std::fill_n(bytes.begin() + at, length, static_cast<std::uint8_t>(random() % 2 * 255));
            break;
        case 2:
            bytes.erase(bytes.begin() + at, bytes.begin() + at + length);
            break;
        case 3: {
            Bytes const piece(bytes.begin() + at, bytes.begin() + at + length);
            bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(random() % bytes.size()), piece.begin(),
                         piece.end());
            break;
        }
        }
    }
}

void run(std::filesystem::path const& file, int changes)
{
    std::ifstream in(file, std::ios::binary);
    Bytes const bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    std::mt19937 random(1);
    for (int i = 0; i < changes; ++i) {
        auto changed = bytes;
        change(changed, random);
        LLVMFuzzerTestOneInput(changed.data(), changed.size());
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) return std::cerr << "usage: " << argv[0] << " CHANGES FILE|FOLDER...\n", 2;
    int const changes = std::atoi(argv[1]);
    for (int i = 2; i < argc; ++i)
        if (std::filesystem::is_directory(argv[i]))
            for (auto const& entry : std::filesystem::directory_iterator(argv[i])) run(entry.path(), changes);
        else
            run(argv[i], changes);
    return 0;
}
