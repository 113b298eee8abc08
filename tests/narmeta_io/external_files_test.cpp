// Files to which a STEP file refers.
#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <sys/stat.h>

using namespace ReadSupport;

TEST(ExternalFiles, ThatAreNoFilesLeaveTheRest)
{
    auto const rack = bytesOf(ZEL_SOURCE_DIR "/tests/narmeta_io/data/rack.stp");
    for (std::string const& name :
         {std::string("folder.stp"), std::string("pipe.stp"), std::string(300, 'x')}) {
        SCOPED_TRACE(name);
        TemporaryFolder const folder;
        std::filesystem::create_directory(folder.path() / "folder.stp");
        ASSERT_EQ(mkfifo((folder.path() / "pipe.stp").c_str(), 0600), 0);
        auto text = rack;
        for (std::size_t at = 0; (at = text.find("'plate.stp'", at)) != text.npos;)
            text.replace(at + 1, 9, name);
        auto const read = ReadSupport::read(folder.write("rack.stp", text));
        ASSERT_EQ(read->result.outcome, IoOutcome::Done);
        auto const& references = read->model.GetReferences();
        auto const plate = std::ranges::find(references, L"plate", &ZELReference::GetReferenceName);
        ASSERT_NE(plate, references.end());
        EXPECT_TRUE((*plate)->IsEmpty());
        ASSERT_EQ(read->result.warnings.size(), 1u) << "only that the file is missing";
    }
}
