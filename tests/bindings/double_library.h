// A library whose answers a test chooses: what the exports that make_double.py writes have in common.
#pragma once

#include "double_control.h"
#include "vesk_sondrel.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

struct Known {
    const char* name;
    int size;
};

/// All exports in the order of the header.
extern const std::vector<Known> known;

/// One call: notes its name and arguments, and gives the answer that the test has chosen.
class Call {
public:
    explicit Call(const char* name);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    template <class Result>
    Result Number() const {
        return static_cast<Result>(m_numbers.empty() ? 0 : m_numbers[0]);
    }

    void Pass(const char* argument, std::int64_t number) const;
    void Read(const std::uint8_t* bytes, int size) const;
    void Read(const VeskChar16* text, int) const;
    void Write(char* out) const;
    void Write(VeskChar16* out) const;
    void Write(std::uint8_t* out) const;
    void WriteRegisters(std::uint32_t* eax, std::uint32_t* ebx, std::uint32_t* ecx, std::uint32_t* edx) const;
    /// As UTF-8.
    std::string Text() const;

private:
    const char* m_name;
    std::vector<double> m_numbers;
    std::u16string m_text;
    std::vector<std::uint8_t> m_bytes;
    bool m_untouched = false;
};

#ifdef VESK_DOUBLE_MSVC
/// The string object of Visual C++'s release runtime, in the place that the caller gives.
void* MakeMsvcString(const std::string& text, void* place);
#define VESK_DOUBLE_STRING(name)                                                                             \
    DOUBLE_API void* name##Msvc(void* place) __asm__(#name);                                                 \
    void* name##Msvc(void* place) {                                                                          \
        return MakeMsvcString(Call(#name).Text(), place);                                                    \
    }
#else
#define VESK_DOUBLE_STRING(name)                                                                             \
    std::string name() {                                                                                     \
        return Call(#name).Text();                                                                           \
    }
#endif
