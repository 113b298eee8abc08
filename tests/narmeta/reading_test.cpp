#include "ReaderRegistry.h"
#include "full_model.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace NarMetaInfra;

namespace
{

std::string Narrow(std::wstring const& text)
{
    return {text.begin(), text.end()};
}

class FakeReader : public ModelReader
{
public:
    FakeReader(std::wstring extension, std::string mark, Confidence confidence)
        : extension_(std::move(extension)), mark_(std::move(mark)), confidence_(confidence)
    {
    }
    FileFormat Format() const override { return {extension_, {extension_}}; }
    Confidence Recognise(std::string_view head, std::string_view) const override
    {
        return head.starts_with(mark_) ? confidence_ : Confidence::No;
    }
    ReadResult Read(ReadRequest const&, ZELProductStructure&) const override { return {}; }

private:
    std::wstring extension_;
    std::string mark_;
    Confidence confidence_;
};

TEST(ReaderRegistryTest, ContentsDecideAndTheNameBreaksTies)
{
    ReaderRegistry registry;
    registry.Add(std::make_unique<FakeReader>(L"aaa", "solid", Confidence::Likely));
    registry.Add(std::make_unique<FakeReader>(L"bbb", "solid", Confidence::Likely));
    registry.Add(std::make_unique<FakeReader>(L"ccc", "solid c", Confidence::Certain));
    struct Case {
        char const *head, *extension;
        int expected; ///< -1: nobody
    };
    for (auto const& [head, extension, expected] :
         {Case{"solid x", "bbb", 1}, Case{"solid x", "zzz", 0}, Case{"solid x", "", 0},
          Case{"solid c", "aaa", 2}, Case{"liquid", "aaa", -1}, Case{"", "ccc", -1}}) {
        auto const* found = registry.Find(head, extension);
        EXPECT_EQ(found,
                  expected < 0 ? nullptr : registry.GetReaders()[static_cast<std::size_t>(expected)].get())
            << head << " ." << extension;
    }
}

TEST(ReaderRegistryTest, KnowsItsOwnFormWhateverItsName)
{
    auto const& readers = ReaderRegistry::BuiltIn();
    auto const& own = readers.GetReaders().front();
    EXPECT_EQ(readers.Find("<?xml version=\"1.0\"?>\n<!-- by hand -->\n<zel_xml>", "step"), own.get());
    EXPECT_NE(readers.Find("<?xml version=\"1.0\"?>\n<svg>", "svg"), own.get());
    EXPECT_NE(readers.Find("ISO-10303-21;", "zel_xml"), own.get());
}

class UnreadableFiles : public testing::Test
{
protected:
    /// Reads into a model that holds something already.
    void expect(std::wstring const& path, IoOutcome outcome, std::string const& cause)
    {
        ZELProductStructure model(L"old", L"Old");
        ZelIO io;
        EXPECT_FALSE(io.Read(path.c_str(), &model, nullptr));
        EXPECT_EQ(io.GetOutcome(), outcome) << Narrow(io.GetErrorMessage());
        EXPECT_THAT(Narrow(io.GetErrorMessage()), testing::HasSubstr(cause));
        EXPECT_EQ(model.GetProductName(), L"Old");
    }

    TemporaryFolder folder_;
};

TEST_F(UnreadableFiles, GiveAnOutcomeAndACause)
{
    expect((folder_ / "none.zel_xml").wstring(), IoOutcome::CannotRead, "\"none.zel_xml\" does not exist");
    expect((folder_ / "").wstring(), IoOutcome::CannotRead, "is a folder");
    expect(L"", IoOutcome::CannotRead, "no file name");
    expect(L"/dev/null", IoOutcome::CannotRead, "not a regular file");
    expect(folder_.Write("empty.zel_xml", ""), IoOutcome::Damaged, "is empty");
    expect(folder_.Write("unknown.zel_xml", "nothing of the kind"), IoOutcome::Damaged, "no known kind");
    expect(folder_.Write("binary.xyz", std::string(5000, '\0')), IoOutcome::Damaged, "no known kind");
    expect(folder_.Write("broken.zel_xml", "<zel_xml>\n<product>"), IoOutcome::Damaged,
           "\"broken.zel_xml\": line 2");
    expect(folder_.Write("nothing.zel_xml", "<zel_xml><product pid='p'/></zel_xml>"),
           IoOutcome::NothingToShow, "nothing that can be shown");
    expect((folder_ / "empty.zel_xml/below").wstring(), IoOutcome::CannotRead, "\"below\"");
}

TEST_F(UnreadableFiles, APipeIsNotWaitedFor)
{
    auto const path = folder_ / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    expect(path.wstring(), IoOutcome::CannotRead, "not a regular file");
}

TEST_F(UnreadableFiles, NoPermission)
{
    if (geteuid() == 0) GTEST_SKIP() << "the superuser may read everything";
    auto const path = folder_.Write("secret.zel_xml", "<zel_xml/>");
    chmod((folder_ / "secret.zel_xml").c_str(), 0);
    expect(path, IoOutcome::CannotRead, "cannot be opened");
}

} // namespace
