#pragma once
#include "bytes.h"
#include "geometry_records.h"
#include "segment_record.h"

namespace HPS::scene
{

void writeGeometry(Writer& out, GeometryRecord const& geometry);
// The number of the geometry that a reference shows; written by writeGeometry, linked by who reads.
struct OpenReference {
    ReferenceRecord* record;
    FileNumber target;
};
// Adds the geometry of a kind that nameOfGeometry names to its owner, or returns null for a kind that is not
// known here. Throws, with nothing added, for what the database cannot hold. A reference goes to `open`.
GeometryRecord* readGeometry(Reader& in, std::string_view kind, SegmentRecord& owner,
                             std::vector<OpenReference>& open);

void writeUserData(Writer& out, UserData const* data);
std::unique_ptr<UserData> readUserData(Reader& in);

} // namespace HPS::scene
