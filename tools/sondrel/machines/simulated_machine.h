// The simulated machine that a library may read, spoken to through its own C interface.
#pragma once

#include "base/system.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace tool {

class SimulatedMachine {
public:
    /// The machine behind this library, or nothing where the library reads the real one.
    static std::optional<SimulatedMachine> Beside(const std::filesystem::path& libraryFile);

    /// Starts a built-in machine or a profile's file. No store means the machine's own file. Throws Error
    /// with the machine's own line.
    void Start(const std::string& machine, const std::optional<std::string>& store);

    /// Tells every debug and event line to standard error as it is written.
    void Trace();

    /// What a listener is told, and what it does with a line.
    using Listener = void (*)(void* context, int kind, const char* line);

    /// Passes debug and event lines to the listener as they are written; null ends it.
    void Listen(Listener listener, void* context) const;

    /// Its time goes on as the world's does.
    void TieToRealTime() const;

    /// Lets its own time go on by so much at once.
    void PassTime(std::chrono::microseconds time) const;

    /// Its own time.
    [[nodiscard]] std::chrono::microseconds Now() const;

    /// The machine that runs when nobody says which.
    [[nodiscard]] std::string DefaultName() const;

private:
    explicit SimulatedMachine(SharedLibrary library) : m_library(std::move(library)) {}

    template <class Function>
    [[nodiscard]] Function* Routine(const char* name) const;

    SharedLibrary m_library;
};

} // namespace tool
