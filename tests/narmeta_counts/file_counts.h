// What a file holds by its own words: its entities are counted as they stand in it, without any reader of
// models.
#pragma once

#include <filesystem>
#include <map>
#include <string>

/// By the name of what is counted. References are products without the one that is the whole file, instances
/// their uses in assemblies and at the top; bodies are solids, and shells that bound none; colours are
/// distinct ones, as eight bits a channel, of faces, bodies and instances. Drawn annotations are those with a
/// picture, notes those of them that are not tied to a meaning; views are drawings with a camera, and planes
/// of annotations that stand in none. Edges and vertices are counted where the format lists them, triangles
/// where it knows nothing else. What a format does not tell is left out.
using Counts = std::map<std::string, int>;

/// Empty if the file is of no kind that is counted here, or can't be read.
Counts countFile(std::filesystem::path const& file);

/// With the shapes of the files beside it to which it refers.
Counts countStep(std::string const& text, std::filesystem::path const& folder);
Counts countIges(std::string const& text);
/// @p text: the JSON part.
Counts countGltf(std::string const& text);

/// @p folder: of the material library.
Counts countObj(std::string const& text, std::filesystem::path const& folder);
Counts countStl(std::string const& bytes);
Counts countBrep(std::string const& text);

/// Empty if there is no such file.
std::string bytesOfFile(std::filesystem::path const& file);

/// rrggbb, of channels from 0 to 1.
std::string colourText(double red, double green, double blue);
