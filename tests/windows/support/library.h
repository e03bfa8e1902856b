// VeskSondrel64.dll as a host has it: loaded at run time, its exports found by their names.
#pragma once

#include "vesk_sondrel.h"

#include <windows.h>

#include <string>

namespace test {

/// The test program's own directory, with a trailing backslash: everything that is built lies there.
std::wstring ProgramDirectory();

/// The DLL, loaded again: every process-wide variable of it has its value at load.
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

    [[nodiscard]] HMODULE Module() const { return m_module; }

    /// The export of that name, typed as the header declares it. Throws std::runtime_error when there is none.
    template <class Function>
    [[nodiscard]] Function* Export(const char* name) const {
        return reinterpret_cast<Function*>(Address(name));
    }

private:
    void* Address(const char* name) const;

    HMODULE m_module;
};

} // namespace test

/// An export by its name, of the type that include/vesk_sondrel.h gives it.
#define VESK_CALL(library, name) ((library).Export<decltype(::name)>(#name))
