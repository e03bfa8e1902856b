// The tool's calls against the header.
#include "exports/calls.h"
#include "exports/document.h"

#include <nlohmann/json.hpp>

#include "vesk_sondrel.h"

#include <gtest/gtest.h>

#include <typeindex>
#include <utility>

namespace {

TEST(Documents, NestUpToSixtyFourLevels) {
    for (const std::size_t levels : {std::size_t{1}, std::size_t{64}, std::size_t{65}, std::size_t{100000}}) {
        const std::string text = std::string(levels, '[') + std::string(levels, ']');
        EXPECT_EQ(tool::ParseDocument(text).has_value(), levels <= 64) << levels;
    }
}

TEST(Calls, CallEachExportAsTheHeaderDeclaresIt) {
    const std::pair<const char*, std::type_index> declared[] = {
#define EXPORT(name) {#name, typeid(&name)},
#include "exports/generated/export_names.inc"
#undef EXPORT
    };
    ASSERT_EQ(std::size(declared), exports::ExportCount);
    for (const auto& [name, type] : declared) {
        const exports::Export* const row = exports::FindExport(name);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_EQ(std::type_index(tool::TypeOf(row->signature)), type) << name;
    }
}

} // namespace
