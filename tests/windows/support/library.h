// VeskSondrel64.dll as a host has it: loaded at run time, its exports found by their names.
#pragma once

#include "import_patch.h"
#include "vesk_sondrel.h"

#include <windows.h>

#include <optional>
#include <string>

namespace test {

/// The test program's own directory, with a trailing backslash: everything that is built lies there.
std::wstring ProgramDirectory();

/// The DLL, loaded again: every process-wide variable of it has its value at load. For that it does not pin itself
/// with its first debug line (resident_host_test.cpp tests that it does).
///
///     test::Library library;
///     EXPECT_EQ(VESK_CALL(library, InitializeSondrel)(), 1);
class Library {
public:
    /// The file is in the directory of the test program, or in a folder there. Throws std::runtime_error when it does not load.
    explicit Library(const std::wstring& file = L"VeskSondrel64.dll");
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// A DLL that pins itself, as in a host.
    struct Pinning {};
    Library(const std::wstring& path, Pinning);

    [[nodiscard]] HMODULE Module() const { return m_module; }

    /// The export of that name, typed as the header declares it. Throws std::runtime_error when there is none.
    template <class Function>
    [[nodiscard]] Function* Export(const char* name) const {
        return reinterpret_cast<Function*>(Address(name));
    }

private:
    void* Address(const char* name) const;

    HMODULE m_module;
    std::optional<ImportPatch> m_patch;
};

} // namespace test

/// An export by its name, of the type that include/vesk_sondrel.h gives it.
#define VESK_CALL(library, name) ((library).Export<decltype(::name)>(#name))
