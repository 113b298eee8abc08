#include "ModelCache.h"
#include "read_support.h"

#include <chrono>

using namespace ReadSupport;

namespace
{
constexpr std::uintmax_t Plenty = std::uintmax_t{1} << 30;

class CacheTest : public testing::TestWithParam<char const*>
{
};

std::string wholeOf(PackedModel const& packed)
{
    std::string whole;
    for (auto const piece : packed.pieces()) whole += piece;
    return whole;
}
} // namespace

TEST_P(CacheTest, TheSecondReadComesFromTheCache)
{
    auto const file = modelFolder() / GetParam();
    REQUIRE_MODEL_FILE(file);
    CacheFolder const cache;
    ZelIO io;
    io.SetCacheLimit(Plenty);
    io.SetKeepExactShapes(true);
    ZELProductStructure first, second;
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &first, nullptr));
    ASSERT_EQ(cache.entries().size(), 1u);
    auto const warnings = io.GetWarningMessages();
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &second, nullptr));
    EXPECT_FALSE(hasStage(io, L"Parsing"));
    EXPECT_EQ(io.GetWarningMessages(), warnings);
    EXPECT_EQ(textOf(first), textOf(second));
    for (std::size_t i = 0; i < first.GetReferences().size(); ++i) {
        auto const &a = first.GetReferences()[i]->GetExactShape(),
                   &b = second.GetReferences()[i]->GetExactShape();
        ASSERT_EQ(a == nullptr, b == nullptr);
        EXPECT_TRUE(!a || (a->bytes == b->bytes && a->faces == b->faces));
    }
    // Another way to read is another entry.
    io.RequestGraphicalMode(true);
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &second, nullptr));
    EXPECT_EQ(cache.entries().size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Files, CacheTest, testing::ValuesIn(ComparedFiles), fileTestName);

TEST(ModelBlock, IsRefusedUnlessItIsWhole)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    auto const piece = wholeOf(packModel(read->result, read->model));
    ZELProductStructure again;
    EXPECT_EQ(unpackModel(piece, {}, again).outcome, IoOutcome::Done);
    EXPECT_EQ(identityOf(again), identityOf(read->model));
    for (std::size_t at = 0; at < piece.size(); at += 1 + piece.size() / 97) {
        ZELProductStructure none;
        EXPECT_EQ(unpackModel(std::string_view(piece).substr(0, at), {}, none).outcome, IoOutcome::Damaged)
            << at;
        auto changed = piece;
        changed[at] = static_cast<char>(changed[at] ^ 0x10);
        EXPECT_EQ(unpackModel(changed, {}, none).outcome, IoOutcome::Damaged) << at;
    }
}

TEST(ModelCache, DropsWhatIsDamagedAndTheOldest)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    auto const packed = packModel(read->result, read->model);
    auto const size = wholeOf(packed).size();
    TemporaryFolder const folder;
    ModelCache const cache(folder.path() / "kept", 2 * size + size / 2);
    auto const keyOf = [&](char const* name) {
        return ModelCache::Key{name, file, std::filesystem::file_time_type::clock::now()};
    };
    for (auto const* const name : {"a", "b", "c"}) {
        cache.store(keyOf(name), {}, packed.pieces());
        std::filesystem::last_write_time(folder.path() / "kept" / (std::string(name) + ".model"),
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::hours(100 - 10 * (name[0] - 'a')));
    }
    cache.store(keyOf("d"), {}, packed.pieces());
    ZELProductStructure model;
    EXPECT_FALSE(cache.load(keyOf("a"), {}, model));
    EXPECT_TRUE(cache.load(keyOf("d"), {}, model));
    auto const entry = folder.path() / "kept/d.model";
    for (std::uintmax_t const left : {std::uintmax_t{0}, std::uintmax_t{9}, std::uintmax_t{size / 2}}) {
        cache.store(keyOf("d"), {}, packed.pieces());
        std::filesystem::resize_file(entry, left);
        EXPECT_FALSE(cache.load(keyOf("d"), {}, model)) << left;
        EXPECT_FALSE(std::filesystem::exists(entry)) << left;
    }
    // Whoever writes to the file while it is read may have changed what its key stands for.
    auto const copy = folder.write("copy.step", bytesOf(file));
    cache.store({"e", copy, std::filesystem::last_write_time(copy)}, {}, packed.pieces());
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "kept/e.model"));
}

TEST(ModelCache, KnowsTheOtherFilesOfAModel)
{
    struct Case {
        char const* folder;
        char const* file;
        char const* other;
    };
    for (auto const& c : {Case{"asm/koch_leader", "Leader_Arm.STEP", "Leader_Base.STEP"},
                          Case{"gltf/FlightHelmet", "FlightHelmet.gltf", "FlightHelmet.bin"},
                          Case{"mesh", "cube_with_materials.obj", "cube_with_materials.mtl"},
                          Case{"mesh", "cube_with_materials.obj", "cube_texture.png"}}) {
        REQUIRE_MODEL_FILE(modelFolder() / c.folder / c.file);
        SCOPED_TRACE(std::string(c.file) + " with " + c.other);
        TemporaryFolder const folder;
        CacheFolder const cache;
        for (auto const& entry : std::filesystem::directory_iterator(modelFolder() / c.folder))
            if (entry.is_regular_file())
                folder.write(entry.path().filename().string(), bytesOf(entry.path()));
        auto const path = (folder.path() / c.file).wstring();
        auto const other = folder.path() / c.other;
        ZelIO io;
        io.SetCacheLimit(Plenty);
        ZELProductStructure first, second;
        auto const isTaken = [&] {
            return io.Read(path.c_str(), &second, nullptr) && !hasStage(io, L"Parsing");
        };
        ASSERT_TRUE(io.Read(path.c_str(), &first, nullptr));
        EXPECT_TRUE(isTaken());
        EXPECT_EQ(textOf(first), textOf(second));
        auto const before = bytesOf(other);
        folder.write(c.other, before + "\n");
        EXPECT_FALSE(isTaken()) << "it has changed";
        EXPECT_TRUE(isTaken());
        std::filesystem::remove(other);
        EXPECT_FALSE(isTaken()) << "it is gone";
        EXPECT_FALSE(isTaken()) << "what is missing may come back";
        folder.write(c.other, before);
        EXPECT_FALSE(isTaken()) << "it is back";
        EXPECT_TRUE(isTaken());
    }
}

TEST(ModelCache, KeepsNothingWithoutAFolderAndNothingOfDevices)
{
    TemporaryFolder const folder;
    ModelCache::Key const key{"without_folder", folder.write("a.step", "text"),
                              std::filesystem::file_time_type::clock::now() + std::chrono::hours(1)};
    std::string_view const piece = "model";
    ModelCache({}, Plenty).store(key, {}, {piece});
    EXPECT_FALSE(std::filesystem::remove("without_folder.model"));
    ModelCache const cache(folder.path() / "kept", Plenty);
    cache.store(key, {"/dev/zero"}, {piece});
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "kept"));
    cache.store(key, {key.file}, {piece});
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "kept/without_folder.model"));
}
