// Makes a seed of a stream file.
#include "unpacked.h"
#include <fstream>
#include <iostream>
#include <sstream>

int main(int argc, char** argv)
{
    if (argc != 3) return std::cerr << "usage: " << argv[0] << " FILE.hsf SEED\n", 2;
    std::ostringstream file;
    file << std::ifstream(argv[1], std::ios::binary).rdbuf();
    try {
        auto const bytes = HPS::scene::unpacked(file.str());
        std::ofstream(argv[2], std::ios::binary)
            .write(reinterpret_cast<char const*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    } catch (HPS::IOException const& error) {
        return std::cerr << argv[1] << ' ' << error.what() << '\n', 1;
    }
    return 0;
}
