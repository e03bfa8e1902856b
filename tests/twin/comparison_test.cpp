// That the comparison tells what it has to: it compares two libraries that are meant to agree.
#include "comparison.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ComparisonTest : public ::testing::Test {
protected:
    ComparisonTest() { fs::create_directories(m_directory); }

    ~ComparisonTest() override { fs::remove_all(m_directory); }

    void Write(const std::string& file, const std::string& value, const std::string& status = "ok") const {
        std::ofstream(m_directory / file) << R"([{"exports": [{"name": "Lid", "status": ")" << status
                                          << R"(", "value": )" << value << "}]}]";
    }

    const fs::path m_directory =
        fs::path(::testing::TempDir()) /
        (std::string("twins-") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(ComparisonTest, PassesWhatAgrees) {
    Write("a.native.json", "1");
    Write("a.windows.json", "1");
    const twin::Comparison found = twin::Compare(m_directory, {});
    EXPECT_THAT(found.problems, IsEmpty());
    EXPECT_EQ(found.answers, 1u);
}

TEST_F(ComparisonTest, TellsWhatDiffersUnlessExcused) {
    Write("a.native.json", "1");
    Write("a.windows.json", "\"1\"");
    EXPECT_THAT(twin::Compare(m_directory, {}).problems, ElementsAre(HasSubstr("a, part 1: Lid")));
    EXPECT_THAT(twin::Compare(m_directory, {{"Lid", "Wine has no lid"}}).problems, IsEmpty());
}

TEST_F(ComparisonTest, TellsAnExcuseThatNobodyNeeds) {
    Write("a.native.json", "1");
    Write("a.windows.json", "1");
    EXPECT_THAT(twin::Compare(m_directory, {{"Lid", "Wine has no lid"}}).problems,
                ElementsAre(HasSubstr("agrees on every machine")));
}

TEST_F(ComparisonTest, TellsWhatWasNotCompared) {
    EXPECT_THAT(twin::Compare(m_directory, {}).problems, ElementsAre(HasSubstr("no reports")));
    Write("a.native.json", "null", "not run");
    Write("a.windows.json", "null", "not run");
    Write("b.native.json", "1");
    EXPECT_THAT(twin::Compare(m_directory, {}).problems,
                ElementsAre(HasSubstr("b: a report is missing"), HasSubstr("Lid was never called")));
}

TEST(ExcusesTest, NeedAReason) {
    std::istringstream table("# comment\n\nLid: Wine has no lid\n");
    EXPECT_THAT(twin::ReadExcuses(table), ElementsAre(std::pair("Lid", "Wine has no lid")));
    std::istringstream bare("Lid\n");
    EXPECT_THROW(twin::ReadExcuses(bare), std::runtime_error);
}

} // namespace
