// The table against what it describes.
#include "export_table.h"

#include "header_signatures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <typeindex>

namespace {

using tool::AllExports;
using tool::Export;

std::string NameOf(const Export& row) {
    return std::string(row.name);
}

TEST(ExportTable, HasEveryNameOfTheLibraryOnce) {
    std::ifstream file(ALL_EXPORTS_FILE);
    std::vector<std::string> expected;
    for (std::string line; std::getline(file, line);) {
        expected.push_back(line);
    }
    ASSERT_EQ(expected.size(), tool::ExportCount);
    std::vector<std::string> names;
    for (const Export& row : AllExports()) {
        names.push_back(NameOf(row));
    }
    EXPECT_THAT(names, ::testing::UnorderedElementsAreArray(expected));
}

TEST(ExportTable, CallsEachExportAsTheHeaderDeclaresIt) {
    EXPECT_FALSE(test::HeaderSignatures().empty());
    for (const test::Signature& signature : test::HeaderSignatures()) {
        const Export* const row = tool::FindExport(signature.name);
        ASSERT_NE(row, nullptr) << signature.name;
        EXPECT_EQ(std::type_index(*row->shape->type), signature.type) << signature.name;
    }
}

TEST(ExportTable, KeepsFamiliesTogetherInTheirOrder) {
    EXPECT_TRUE(std::ranges::is_sorted(AllExports(), {}, &Export::family));
}

TEST(ExportTable, StatesASizeForEachFixedBuffer) {
    for (const Export& row : AllExports()) {
        const bool fixed = row.shape == &tool::shape::NarrowText || row.shape == &tool::shape::ReadBytes ||
                           row.shape == &tool::shape::WriteBytes;
        EXPECT_EQ(row.traits.size != 0, fixed) << row.name;
    }
}

TEST(ExportTable, LetsAReportCallNothingThatChangesTheMachine) {
    for (const Export& row : AllExports()) {
        const bool sets = NameOf(row).find("Set") != std::string::npos || row.name == "ShutdownSondrel";
        EXPECT_EQ(row.traits.report == tool::InReport::Left, sets) << row.name;
        const bool callable = row.shape->argument.empty() || !row.traits.sample.empty();
        EXPECT_TRUE(sets || callable) << row.name << " needs an argument for a report";
    }
}

TEST(ExportTable, GivesEachValueOneMeaning) {
    for (const Export& row : AllExports()) {
        std::set<std::string_view> values;
        for (const tool::Meaning& meaning : row.meanings) {
            EXPECT_TRUE(values.insert(meaning.value).second) << row.name << " " << meaning.value;
            EXPECT_FALSE(meaning.text.empty()) << row.name << " " << meaning.value;
        }
    }
}

} // namespace
