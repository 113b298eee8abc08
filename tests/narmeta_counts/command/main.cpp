#include "file_counts.h"

#include <cstdio>

int main(int count, char** arguments)
{
    for (int i = 1; i < count; ++i) {
        std::printf("%s:", arguments[i]);
        for (auto const& [what, number] : countFile(arguments[i]))
            std::printf(" %s %d", what.c_str(), number);
        std::puts("");
    }
}
