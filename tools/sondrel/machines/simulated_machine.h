// The simulated machine that a library may read, controlled through its C interface.
#pragma once

#include "base/system.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace tool {

class SimulatedMachine {
public:
    /// The machine that this library reads, or nothing if the library reads the real one.
    static std::optional<SimulatedMachine> NextTo(const std::filesystem::path& libraryFile);

    /// Starts a built-in machine or a profile's file. Without a store the machine uses its default one. Throws
    /// Error with the machine's error line.
    void Start(const std::string& machine, const std::optional<std::string>& store);

    /// Prints every debug and event line to standard error as it is written.
    void Trace();

    /// Gets each line with its kind.
    using Listener = void (*)(void* context, int kind, const char* line);

    /// Passes debug and event lines to the listener as they are written; null ends it.
    void Listen(Listener listener, void* context) const;

    /// Its time advances with real time.
    void TieToRealTime() const;

    /// Advances its time immediately.
    void PassTime(std::chrono::microseconds time) const;

    /// Its present time.
    [[nodiscard]] std::chrono::microseconds Now() const;

    /// The machine that runs by default.
    [[nodiscard]] std::string DefaultName() const;

private:
    explicit SimulatedMachine(SharedLibrary library) : m_library(std::move(library)) {}

    template <class Function>
    [[nodiscard]] Function* Routine(const char* name) const;

    SharedLibrary m_library;
};

} // namespace tool
