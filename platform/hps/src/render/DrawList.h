// What a frame draws, as plain data: no database type and no OpenGL type.
#pragma once
#include "Instance.h"
#include "MaterialTable.h"
#include "Placing.h"
#include "ScreenStrokes.h"
#include "Shadows.h"
#include "StrokeTable.h"
#include "linear.h"
#include <compare>
#include <cstdint>
#include <map>
#include <vector>

namespace HPS::render
{

/// Draws that agree in this go to the device in one call.
struct Pipeline {
    Placing placing; ///< filled in by the list
    bool transparent = false;
    Primitive primitive = Primitive::Faces;
    bool cullBack = false;
    bool closed = false; ///< front faces hide all back faces from outside, so these may be left out
    bool cullFront = false;
    bool mirrored = false;         ///< the instance's matrix turns the winding round; matters to culling only
    std::int16_t displacement = 0; ///< of faces, in depth steps, away from the viewer
    std::uint16_t surface = 0;     ///< kind of the material table: features and textures beyond the plain
    bool cut = false;              ///< sections run through it; chosen for each frame
    bool screenDoor = false;       ///< pixels left out stand for what is seen through; not with `transparent`
    bool depthWriting = false;     ///< of what is transparent, where it is drawn in some order
    bool smooth = true;            ///< uses all samples of a pixel

    friend auto operator<=>(Pipeline const&, Pipeline const&) = default;
};

/// True if a showing stands among cutting sections.
inline bool isCut(Instance const& instance)
{
    return instance.material >> materialBits != 0;
}

/// What a showing does beyond its own place.
struct Role {
    bool castsShadow = true;         ///< in shadow maps
    std::uint8_t withoutEffects = 0; ///< `EffectBit`s
    std::uint8_t planeShadow = 0;    ///< numbers, from 1, of what the list holds; 0 for none
    std::uint8_t reflection = 0;

    bool operator==(Role const&) const = default;
};

/// One showing of one mesh range.
struct Record {
    Pipeline pipeline;
    MeshRange range; ///< without indices for a record that is gone; its place is kept until the next sorting
    Box world;       ///< around what is drawn, in world coordinates
    Role role{};
    std::uint32_t owner = ~0u;
    std::uint32_t next = ~0u; ///< of the same owner

    float reach = 0; ///< pixels that it may stand out of the box
    // Shown while the instance's size has at least so many pixels, and less than that many.
    float from = 0, to = std::numeric_limits<float>::infinity();
    MeshRange fine; ///< shown instead where the size has `fineFrom` pixels or more; empty: there is none

    static constexpr float fineFrom = 40;

    bool gone() const { return range.indexCount == 0; }
    /// True if each frame has to look at it for itself.
    bool single() const
    {
        return reach > 0 || from > 0 || to < std::numeric_limits<float>::infinity() || fine.indexCount > 0;
    }

    /// The pipeline of a frame that sections run through.
    Pipeline cutBy(bool sections) const
    {
        Pipeline result = pipeline;
        result.cut = sections;
        return result;
    }
};

/// How what is added to a list is drawn, whatever it is.
struct Manner {
    bool opaque = false;       ///< what could be seen through is not
    bool screenDoor = false;   ///< it is by pixels left out
    bool depthWriting = false; ///< see `Pipeline`
    bool smooth = true;
    bool smoothText = true;
    Role role;

    /// `transparent` has to tell whether the record can be seen through at all.
    void apply(Record& record) const
    {
        Pipeline& pipeline = record.pipeline;
        bool const through = pipeline.transparent && !opaque;
        pipeline.transparent = through && !screenDoor;
        pipeline.screenDoor = through && screenDoor;
        pipeline.depthWriting = pipeline.transparent && depthWriting;
        pipeline.smooth = pipeline.primitive == Primitive::Glyphs ? smoothText : smooth;
        record.role = role;
    }
};

/// Records side by side that show one mesh range: one indirect command.
struct RecordRun {
    std::uint32_t first, count;
    bool fine = false; ///< the records' fine range is shown
    bool cut = false;  ///< sections run through them; chosen for each frame
};

/// Records side by side of one pipeline that lie near each other.
struct RecordGroup {
    std::uint32_t first, count;
    std::uint32_t pipeline; ///< rank in the order of drawing
    std::uint32_t runs;     ///< in `DrawList::runs`, from `first` on
    Box box;
    float smallest;      ///< diagonal of the smallest box in it
    bool single = false; ///< holds records that each frame has to look at
};

/// What a frame draws. Every record has an owner, a small number of the caller's. What an owner shows may be
/// given anew at any time: what is equal stays untouched, what differs is written over in place, what is gone
/// leaves a gap, and what is new comes last, until so much has gathered there that all is sorted again.
struct DrawList {
    // In parallel. Sorted ones first: by pipeline, then by place, then by mesh.
    std::vector<Record> records;
    std::vector<Instance> instances;

    std::vector<RecordGroup> groups;
    std::vector<RecordRun> runs;           ///< as long as `records`; a group uses the first ones of its part
    MaterialTable materials;               ///< that `Instance::material` counts in
    std::vector<PlaneShadow> planeShadows; ///< each one once, that `Role`s name
    std::vector<PlaneReflection> reflections;
    StrokeTable strokes; ///< that instances of strokes count in
    ScreenStrokes screenStrokes;
    bool hasStrokes = false;   ///< or had some
    Box bounds;                ///< around all records
    std::uint64_t version = 0; ///< differs whenever the content does
    std::uint64_t sorted = 0;  ///< version since which single instances changed only
    /// Instances changed since then, with the version that brought them.
    std::vector<std::pair<std::uint64_t, std::uint32_t>> patches;

    void clear();
    // Of what is added from now on; `open` sets both.
    Placing placing;
    Manner manner;
    /// What is added until `close` takes the place of what `owner` had.
    void open(std::uint32_t owner, Placing const& with = {});
    /// `local` is the range's box in its own coordinates, `matrix` leads from there to the world.
    /// Rows of `instance` and the mirroring are filled in here. What lies too far out for the device's
    /// numbers is left out. `reach` as in a record. Outside of `open` and `close` it has no owner and stays.
    void add(Pipeline pipeline, MeshRange const& range, Box const& local, Mat4 const& matrix,
             Instance instance, float reach = 0);
    /// The same for a record whose instance is complete.
    void add(Record record, Instance const& instance);
    void close();
    void remove(std::uint32_t owner)
    {
        open(owner);
        close();
    }
    /// Makes groups, runs and bounds fit and takes a new version, if anything was changed.
    void finish();

private:
    std::uint32_t append(Record const& record, Instance const& instance);
    void drop(std::uint32_t at);
    void overwrite(std::uint32_t at, Record const& record, Instance const& instance);
    void touch(std::uint32_t at);
    void sort();
    void rank();
    void makeGroup(RecordGroup& group);
    void reorder(std::vector<std::uint32_t> const& order);

    std::vector<std::uint32_t> firstOf_; ///< by owner: its first record
    std::vector<std::uint32_t> groupOf_; ///< by record, for those that have a group
    std::vector<std::uint32_t> stale_;   ///< groups to be made again; some twice
    std::vector<std::uint32_t> changed_; ///< records, since the last `finish`
    std::map<Pipeline, std::uint32_t> ranks_;
    std::vector<Record> openRecords_; ///< of the owner that is open
    std::vector<Instance> openInstances_;
    std::uint32_t owner_ = ~0u;     ///< that is open
    std::uint32_t sortedCount_ = 0; ///< records before the late ones
    std::uint32_t gone_ = 0;
};

} // namespace HPS::render
