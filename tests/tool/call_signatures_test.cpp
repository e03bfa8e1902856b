// The tool's calls against the header.
#include "exports/calls.h"

#include "vesk_sondrel.h"

#include <gtest/gtest.h>

#include <typeindex>
#include <utility>

namespace {

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
