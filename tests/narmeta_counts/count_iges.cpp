#include "file_counts.h"

#include <cstdlib>
#include <set>
#include <sstream>
#include <vector>

// Two lines of the directory stand for an entity, in fields of eight columns: its type is the first one, its
// colour the third of the second line, a number of the standard's own or, negative, the line of the colour's
// definition.
Counts countIges(std::string const& text)
{
    Counts counts;
    std::set<std::string> named;
    std::istringstream stream(text);
    std::map<int, std::string> parameters; // by the line of the directory that they belong to
    std::vector<std::string> directory;
    for (std::string line; std::getline(stream, line);) {
        if (line.size() < 80) continue;
        if (line[72] == 'D') directory.push_back(line);
        if (line[72] == 'P') parameters[std::atoi(line.substr(64, 8).c_str())] += line.substr(0, 64);
    }
    std::set<int> colours;
    for (std::size_t i = 0; i + 1 < directory.size(); i += 2) {
        auto const field = [&](std::size_t line, std::size_t number) {
            return std::atoi(directory[i + line].substr(8 * number, 8).c_str());
        };
        auto const type = field(0, 0);
        if (type == 144 || type == 143 || type == 510) {
            ++counts["faces"];
            colours.insert(field(1, 2));
        }
    }
    for (int const colour : colours) {
        double rgb[3] = {};
        auto const found = parameters.find(-colour);
        if (found != parameters.end() &&
            std::sscanf(found->second.c_str(), "314,%lf,%lf,%lf", &rgb[0], &rgb[1], &rgb[2]) == 3)
            named.insert(colourText(rgb[0] / 100, rgb[1] / 100, rgb[2] / 100));
    }
    counts["colours"] = static_cast<int>(named.size());
    return counts;
}
