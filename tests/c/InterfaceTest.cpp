// The C interface from outside, and what becomes of it when memory ends.
#include <thread>

#include <gtest/gtest.h>

#include "TreePaths.h"
#include "c/designspec.h"
#include "tests/support/Allocations.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

namespace {

class CInterface : public testing::Test {
protected:
    CInterface() { std::filesystem::create_directory(m_folder.Native("规范")); }
    std::string Project() const { return Utf8(m_folder.Native()); }

    TemporaryFolder m_folder;
};

TEST_F(CInterface, WorksInAProgramInC)
{
    // Its words are those of the system's own code page.
    std::filesystem::copy_file(u8"" SOURCE_DIR "/examples/roads/违规.xml",
                               m_folder.Native("road.xml"));
    const auto run =
        RunProcess({BINARY_DIR "/bin/c_check", Project(), Utf8(m_folder.Native("road.xml"))},
                   m_folder.Native());
    EXPECT_EQ(run.status, 0) << run.out << run.err;
    EXPECT_EQ(run.out.substr(0, run.out.find_first_of("\r\n")), "0");
}

// What a server does: each thread with a library of its own.
TEST_F(CInterface, KeepsManyLibrariesSideBySide)
{
    const auto work = [this](int mark) {
        const std::string project = Utf8(m_folder.Native(std::to_string(mark)));
        std::filesystem::create_directories(m_folder.Native(std::to_string(mark) + "/规范"));
        for (int i = 0; i < 20; ++i) {
            designspec_library* library = nullptr;
            designspec_specification* made = nullptr;
            designspec_specification* added = nullptr;
            double value = 0;
            EXPECT_EQ(designspec_library_open(project.c_str(), &library), DESIGNSPEC_OK);
            EXPECT_EQ(designspec_specification_new("a", &made), DESIGNSPEC_OK);
            EXPECT_EQ(designspec_set_number(made, "CircularCurveRad.MaxRad", 1000 + mark),
                      DESIGNSPEC_OK);
            EXPECT_EQ(designspec_library_add(library, made, &added), DESIGNSPEC_OK);
            EXPECT_EQ(designspec_get_number(added, "CircularCurveRad.MaxRad", &value),
                      DESIGNSPEC_OK);
            EXPECT_EQ(value, 1000 + mark);
            EXPECT_EQ(designspec_library_open("/no/such", &library), DESIGNSPEC_FILE_FAILED);
            EXPECT_STREQ(designspec_last_error(), "/no/such: 文件夹不存在");
            designspec_specification_free(made);
            designspec_specification_free(added);
            EXPECT_EQ(designspec_library_close(library), DESIGNSPEC_OK);
        }
    };
    {
        std::vector<std::jthread> threads;
        for (int mark = 0; mark < 4; ++mark)
            threads.emplace_back(work, mark);
    }
    for (int mark = 0; mark < 4; ++mark) {
        designspec_library* library = nullptr;
        size_t count = 0;
        const std::string project = Utf8(m_folder.Native(std::to_string(mark)));
        EXPECT_EQ(designspec_library_open(project.c_str(), &library), DESIGNSPEC_OK);
        EXPECT_EQ(designspec_library_count(library, &count), DESIGNSPEC_OK);
        EXPECT_EQ(count, 20U);
        designspec_library_close(library);
    }
}

// A whole piece of work, each of whose calls may fail. True when all were done.
bool Works(const std::string& project)
{
    designspec_library* library = nullptr;
    designspec_specification* one = nullptr;
    designspec_specification* copy = nullptr;
    designspec_table* table = nullptr;
    designspec_differences* differences = nullptr;
    char* text = nullptr;
    int32_t value = 0;
    const bool done =
        designspec_library_open(project.c_str(), &library) == DESIGNSPEC_OK &&
        designspec_library_at(library, 0, &one) == DESIGNSPEC_OK &&
        designspec_specification_copy(one, &copy) == DESIGNSPEC_OK &&
        designspec_set_number(copy, "CircularCurveRad.MaxRad", 9000) == DESIGNSPEC_OK &&
        designspec_set_text(copy, "CircularCurveRad.MinRadCriterion", "CJJ 37-2012, 6.2.2") ==
            DESIGNSPEC_OK &&
        designspec_table_of(copy, "CircularCurveRad.SuperelevationMinRad", &table) ==
            DESIGNSPEC_OK &&
        designspec_query_integer(table, 70, DESIGNSPEC_UPPER, &value) == DESIGNSPEC_OK &&
        designspec_compare(one, copy, &differences) == DESIGNSPEC_OK &&
        designspec_differences_apply(differences, nullptr, one) == DESIGNSPEC_OK &&
        designspec_specification_text(copy, &text) == DESIGNSPEC_OK;
    EXPECT_NE(done, designspec_last_error()[0] != 0);
    designspec_text_free(text);
    designspec_differences_free(differences);
    designspec_table_free(table);
    designspec_specification_free(copy);
    designspec_specification_free(one);
    designspec_library_close(library);
    return done;
}

TEST_F(CInterface, TellsWhereMemoryEnds)
{
    designspec_library* library = nullptr;
    designspec_specification* made = nullptr;
    ASSERT_EQ(designspec_library_open(Project().c_str(), &library), DESIGNSPEC_OK);
    ASSERT_EQ(designspec_specification_new("a", &made), DESIGNSPEC_OK);
    ASSERT_EQ(designspec_library_add(library, made, nullptr), DESIGNSPEC_OK);
    ASSERT_EQ(designspec_specification_free(made), DESIGNSPEC_OK);
    ASSERT_EQ(designspec_library_close(library), DESIGNSPEC_OK);
    ASSERT_TRUE(Works(Project()));

    int failed = 0;
    const std::string project = Project();
    for (int at = 0;; at += 1 + at / 32) {
        ASSERT_LT(at, 1000000);
        FailAllocationAfter(at);
        const bool done = Works(project);
        const bool allWorked = IsFailureDue();
        FailAllocationAfter(-1);
        if (!done) ++failed;
        if (allWorked) break;
    }
    EXPECT_GT(failed, 10);
    EXPECT_TRUE(Works(Project()));
}

} // namespace
