/**
 * @file
 * VeskSondrel64 for C++17 and later: header only, over the C interface of vesk_sondrel.h.
 *
 *     #include <vesk_sondrel.hpp>
 *
 *     const vesk::Library library = vesk::Library::load();
 *     if (const auto session = library.open_session()) {
 *         if (const auto cpu = session->thermal().cpu_temperature()) {
 *             std::printf("%u %s\n", cpu->value, cpu->unit());
 *         } else {
 *             std::printf("%s: %s\n", cpu.failure().reading(), cpu.failure().meaning());
 *         }
 *     }
 *
 * Each reading returns a Result: a value with its unit, or the failure that it was. "Absent" (this machine has no such
 * thing) and "failed" are two states. One answer of the library can mean several: Failure::could_be() says which.
 *
 *     Strings    UTF-16 strings are vesk::String (std::wstring on Windows, std::u16string elsewhere), narrow ones
 *                std::string; vesk::utf8() makes UTF-8 of either. Documents are strings, lists are vectors.
 *     Memory     A reading allocates what its result consists of and nothing else, except for the three long lists of
 *                names in applications(), which go through a buffer of 1 MB.
 *     Kits       Goes with each kit: no string object of C++ passes between host and library, so that neither the
 *                compiler nor its runtime has to be that of the library. Debug builds of Visual C++ included.
 *     Threads    The library starts none. Calls that share a resource must not overlap; a reading's comment names
 *                what it needs for itself. What is not named there may overlap with everything.
 *     Sessions   Opening and closing a session must not overlap with each other or with a reading that needs one.
 *                Objects of this header may be used from any thread.
 *     Errors     Readings throw nothing but std::bad_alloc. Library::load() throws LoadError; the overload with a
 *                string does not. Works with exceptions disabled: Result::value() then ends the program.
 */
#ifndef VESK_SONDREL_HPP
#define VESK_SONDREL_HPP

#include "vesk_sondrel/generated/readings.hpp"

namespace vesk {

/// The library cannot be loaded, or is older than this header. what() has the system's message.
class LoadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A driver session: what talks to the embedded controller, the driver or the processor needs one. Closes it when
/// destroyed. Sessions are counted; a host may have several.
class Session : public Readings {
public:
    Session(Session&& other) noexcept : Readings(std::move(other.m_module)) {}

    Session& operator=(Session&& other) noexcept {
        if (this != &other) {
            close();
            m_module = std::move(other.m_module);
        }
        return *this;
    }

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    ~Session() { close(); }

private:
    friend class Library;

    explicit Session(std::shared_ptr<detail::Module> module) noexcept : Readings(std::move(module)) {
        m_module->sessions.fetch_add(1, std::memory_order_relaxed);
    }

    void close() noexcept {
        if (m_module != nullptr) {
            m_module->exports.ShutdownSondrel();
            m_module->sessions.fetch_sub(1, std::memory_order_relaxed);
            m_module.reset();
        }
    }
};

/// The library, loaded. Copies share it; it is unloaded with the last of them and of their sessions. All readings can
/// be asked here too: those that need a session then give State::no_session, unless it is open all the same.
class Library : public Readings {
public:
    /// From a file, or next to the program: on Windows in the program's directory, elsewhere where the loader looks.
    /// Throws LoadError.
    static Library load(const PathChar* path = detail::DefaultPath) {
        std::string problem;
        return required(load(path, problem), problem);
    }

    /// Without an exception: nothing, and the system's message in `problem`.
    static std::optional<Library> load(const PathChar* path, std::string& problem) {
        const detail::Handle handle = detail::open_library(path);
        if (handle == nullptr) {
            problem = detail::open_problem(path);
            return std::nullopt;
        }
        return checked(handle, true, problem);
    }

    /// What the host is linked with. Throws LoadError.
    static Library linked() {
        std::string problem;
        return required(linked(problem), problem);
    }

    static std::optional<Library> linked(std::string& problem) {
        // A linker leaves out a library that nothing refers to.
        [[maybe_unused]] static const volatile auto needed = &::GetIoDllVersion;
        const detail::Handle handle = detail::linked_library();
        if (handle == nullptr) {
            problem = "the program is not linked with the library";
            return std::nullopt;
        }
        return checked(handle, false, problem);
    }

    /// Opens the driver session, or adds one reference to the one that is open. A failure can pass: try again later.
    [[nodiscard]] Result<Session> open_session() const {
        const std::int32_t opened = m_module->exports.InitializeSondrel();
        const detail::Answer* const answer = detail::opening.find_number(opened);
        if (opened == 1) {
            return Session(m_module);
        }
        return Failure(detail::opening.info.export_name, State::failed, {State::failed},
                       answer == nullptr ? "no session was opened" : answer->meaning);
    }

private:
    explicit Library(std::shared_ptr<detail::Module> module) noexcept : Readings(std::move(module)) {}

    static std::optional<Library> checked(detail::Handle handle, bool owned, std::string& problem) {
        auto module = std::make_shared<detail::Module>(handle);
        module->owned = owned;
        if (module->missing != nullptr) {
            problem = std::string("the library does not export ") + module->missing;
            return std::nullopt;
        }
        return Library(std::move(module));
    }

    static Library required(std::optional<Library> library, const std::string& problem) {
        if (!library) {
#if VESK_SONDREL_EXCEPTIONS
            throw LoadError(problem);
#else
            static_cast<void>(problem);
            std::abort();
#endif
        }
        return *std::move(library);
    }
};

} // namespace vesk

#endif // VESK_SONDREL_HPP
