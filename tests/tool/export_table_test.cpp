// The table against what it describes.
#include "exports/export_table.h"

#include "vesk_sondrel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <typeindex>

namespace {

using tool::AllExports;
using tool::Export;

TEST(ExportTable, HasEveryNameOfTheLibraryOnce) {
    std::ifstream file(ALL_EXPORTS_FILE);
    std::vector<std::string> expected;
    for (std::string line; std::getline(file, line);) {
        expected.push_back(line);
    }
    ASSERT_EQ(expected.size(), tool::ExportCount);
    std::vector<std::string_view> names;
    std::ranges::transform(AllExports(), std::back_inserter(names), &Export::name);
    EXPECT_THAT(names, ::testing::UnorderedElementsAreArray(expected));
}

TEST(ExportTable, CallsEachExportAsTheHeaderDeclaresIt) {
    const std::pair<const char*, std::type_index> declared[] = {
#define EXPORT(name) {#name, typeid(&name)},
#include "exports/generated/export_names.inc"
#undef EXPORT
    };
    ASSERT_EQ(std::size(declared), tool::ExportCount);
    for (const auto& [name, type] : declared) {
        const Export* const row = tool::FindExport(name);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_EQ(std::type_index(*row->shape->type), type) << name;
    }
}

TEST(ExportTable, SaysOfEachRowWhatACallNeeds) {
    EXPECT_TRUE(std::ranges::is_sorted(AllExports(), {}, &Export::family));
    for (const Export& row : AllExports()) {
        const bool fixed = row.shape == &tool::shape::NarrowText || row.shape == &tool::shape::ReadBytes ||
                           row.shape == &tool::shape::WriteBytes;
        EXPECT_EQ(row.traits.size != 0, fixed) << row.name;
        const bool sets = row.name.find("Set") != std::string_view::npos || row.name == "ShutdownSondrel";
        EXPECT_EQ(row.traits.report == tool::InReport::Left, sets) << row.name;
        const bool callable = row.shape->argument.empty() || !row.traits.sample.empty();
        EXPECT_TRUE(sets || callable) << row.name << " needs an argument for a report";
        std::set<std::string_view> values;
        for (const tool::Meaning& meaning : row.meanings) {
            EXPECT_TRUE(values.insert(meaning.value).second) << row.name << " " << meaning.value;
            EXPECT_FALSE(meaning.text.empty()) << row.name << " " << meaning.value;
        }
    }
}

} // namespace
