// Texts as COM passes them.
#pragma once

#include "platform/back_end.h"
#include "platform/windows/wide.h"

#include <oleauto.h>

#include <new>
#include <string_view>
#include <utility>

namespace VESK_BACK_END {

/// An allocated BSTR. Throws std::bad_alloc when there is no memory for it.
class Bstr {
public:
    explicit Bstr(std::u16string_view text)
        : m_text(::SysAllocStringLen(nullptr, static_cast<UINT>(text.size()))) {
        if (m_text == nullptr) {
            throw std::bad_alloc();
        }
        text.copy(reinterpret_cast<char16_t*>(m_text), text.size());
    }

    /// Takes over a text that an operation has handed out, or a null one.
    static Bstr Adopt(BSTR text) { return Bstr(Adopted{text}); }

    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    ~Bstr() { ::SysFreeString(m_text); }

    [[nodiscard]] BSTR Get() const { return m_text; }

    BSTR Detach() { return std::exchange(m_text, nullptr); }

private:
    struct Adopted {
        BSTR text;
    };

    explicit Bstr(Adopted adopted) : m_text(adopted.text) {}

    BSTR m_text;
};

/// The characters of a BSTR that somebody else owns; a null one is the empty text.
inline std::u16string_view ViewOf(BSTR text) {
    return {reinterpret_cast<const char16_t*>(text), ::SysStringLen(text)};
}

} // namespace VESK_BACK_END
