// Puts functions of a test in the place of those that one loaded module calls.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace test {

/// Replaces functions in the import table of one module, and restores them when destroyed. The rest of the
/// process keeps the real ones, so that a replacement may call the function it replaces.
///
///     test::ImportPatch patch(library.Module());
///     patch.Replace("CreateFileW", &RefuseTheFirstOpening);
class ImportPatch {
public:
    explicit ImportPatch(HMODULE module);
    ~ImportPatch();
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    /// A function that the module imports. Throws std::runtime_error when it does not. An import by ordinal is
    /// named "#487".
    template <class Function>
    void Replace(const char* name, Function* replacement) {
        ReplaceAddress(name, reinterpret_cast<void*>(replacement));
    }

    /// A routine that the module looks up at run time with GetProcAddress, in whatever library. A null
    /// replacement makes it a routine that this Windows does not have. For one ImportPatch at a time.
    template <class Routine>
    void ReplaceRoutine(const char* name, Routine* replacement) {
        RedirectRoutine(name, reinterpret_cast<void*>(replacement));
    }

    /// Lets the module find a library, by its plain name, that this Windows does not have. It has no routines
    /// except those that are replaced.
    void PretendLibrary(const wchar_t* name);

    /// Lets the module miss a library that this Windows has.
    void HideLibrary(const wchar_t* name);

    /// Nothing is restored: the module is about to be unloaded, and calls the replacements to its end.
    void Abandon() { m_slots.clear(); }

private:
    struct Slot {
        void** place;
        void* original;
    };

    void ReplaceAddress(const std::string& name, void* replacement);
    void RedirectRoutine(const std::string& name, void* replacement);
    void RedirectLibraries();

    HMODULE m_module;
    std::vector<Slot> m_slots;
};

} // namespace test
