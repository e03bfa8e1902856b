// One call of an export by the host: what the generated wrappers of the exports are made of.
#pragma once

#include "vesk_sondrel.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace observer {

/// An argument of an export: its name, its value or its address, and the size of a buffer in its own units.
class ExportArgument {
public:
    enum class Type : std::uint8_t { Uint8, Int32, Uint32, ByteBlock, Text, WideText };

    static ExportArgument InUint8(const char* name, std::uint8_t value) { return {name, Type::Uint8, value}; }

    static ExportArgument InInt32(const char* name, std::int32_t value) { return {name, Type::Int32, value}; }

    static ExportArgument InUint32(const char* name, std::uint32_t value) {
        return {name, Type::Uint32, value};
    }

    static ExportArgument InBytes(const char* name, const std::uint8_t* bytes, std::size_t size) {
        return {name, Type::ByteBlock, bytes, size, false};
    }

    /// A string that ends with a zero.
    static ExportArgument InWideText(const char* name, const VeskChar16* text) {
        return {name, Type::WideText, text, 0, false};
    }

    static ExportArgument OutUint32(const char* name, const std::uint32_t* value, std::size_t bytes) {
        return {name, Type::Uint32, value, bytes, true};
    }

    static ExportArgument OutBytes(const char* name, const std::uint8_t* bytes, std::size_t size) {
        return {name, Type::ByteBlock, bytes, size, true};
    }

    static ExportArgument OutText(const char* name, const char* text, std::size_t size) {
        return {name, Type::Text, text, size, true};
    }

    static ExportArgument OutWideText(const char* name, const VeskChar16* text, std::size_t size) {
        return {name, Type::WideText, text, size, true};
    }

    [[nodiscard]] const char* Name() const { return m_name; }

    [[nodiscard]] Type TypeOf() const { return m_type; }

    [[nodiscard]] bool IsOutput() const { return m_output; }

    /// Of a number that goes in.
    [[nodiscard]] std::int64_t Value() const { return m_value; }

    /// Of everything else.
    [[nodiscard]] const void* Address() const { return m_address; }

    /// How many units of its type may be read there; 0: up to a zero.
    [[nodiscard]] std::size_t Size() const { return m_size; }

private:
    ExportArgument(const char* name, Type type, std::int64_t value)
        : m_name(name), m_type(type), m_value(value) {}

    ExportArgument(const char* name, Type type, const void* address, std::size_t size, bool output)
        : m_name(name), m_type(type), m_output(output), m_address(address), m_size(size) {}

    const char* m_name;
    Type m_type;
    bool m_output = false;
    std::int64_t m_value = 0;
    const void* m_address = nullptr;
    std::size_t m_size = 0;
};

class ReplayedExport;
struct ExportNotes;

/// Delimits an export call on its thread. The boundary calls between belong to it, and handles are numbered within it.
class ExportCall {
public:
    /// `place` is the export's in the description, `name` a literal.
    ExportCall(std::size_t place, const char* name, std::span<const ExportArgument> arguments = {}) noexcept;
    ExportCall(const ExportCall&) = delete;
    ExportCall& operator=(const ExportCall&) = delete;
    ~ExportCall();

    /// Passes the result on.
    template <class Result>
    Result Returns(Result result) {
        if (m_notes != nullptr) {
            NoteResult(result);
        }
        return result;
    }

    /// The one that the calling thread is in; null outside.
    static ExportCall* Current() noexcept;

    /// Null where it is not replayed.
    [[nodiscard]] ReplayedExport* Replayed() const noexcept;

    [[nodiscard]] std::size_t Place() const { return m_place; }

    [[nodiscard]] const char* Name() const { return m_name; }

    [[nodiscard]] std::span<const ExportArgument> Arguments() const { return m_arguments; }

    /// From 1, in the order in which the exports of a process are called; 0 where there was no memory to note one that is
    /// recorded.
    [[nodiscard]] std::uint64_t Number() const { return m_number; }

    [[nodiscard]] std::uint32_t& HandlesNumbered() { return m_handles; }

private:
    void Note();
    void NoteResult(std::int64_t result) noexcept;
    void NoteResult(float result) noexcept;
    void NoteResult(double result) noexcept;
    void NoteResult(const std::string& result) noexcept;

    void NoteResult(std::integral auto result) noexcept { NoteResult(static_cast<std::int64_t>(result)); }

    std::size_t m_place;
    const char* m_name;
    std::span<const ExportArgument> m_arguments;
    std::uint64_t m_number;
    std::uint32_t m_handles = 0;
    ExportCall* m_outer;
    std::unique_ptr<ExportNotes> m_notes; // null where none are wanted
};

} // namespace observer
