// Writes the samples into the folder given as argument.
#include "machine.h"

#include <narmeta/io/ZelIO.h>

#include <clocale>
#include <filesystem>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: zel_make_samples FOLDER\n";
        return 2;
    }
    // Paths are turned into wide text by the locale.
    std::setlocale(LC_ALL, "C.UTF-8");
    NarMetaInfra::ZELProductStructure model;
    samples::BuildMachine(model);
    NarMetaInfra::ZelIO io;
    auto const path = (std::filesystem::path(argv[1]) / "machine.zel_xml").wstring();
    if (io.Write(path.c_str(), &model, nullptr)) return 0;
    std::wcerr << io.GetErrorMessage() << L'\n';
    return 1;
}
