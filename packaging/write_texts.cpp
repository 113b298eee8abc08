// Writes the texts that follow from the table of options: zelview_texts man|completion > file

#include "option_texts.h"

#include <cstdio>
#include <string_view>

int main(int argc, char** argv)
{
    std::string_view const wanted = argc == 2 ? argv[1] : "";
    std::string text;
    if (wanted == "man")
        text = zelview::manPage(ZEL_VERSION);
    else if (wanted == "completion")
        text = zelview::bashCompletion();
    else
        return 1;
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0 ? 0 : 1;
}
