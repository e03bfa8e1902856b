// COM strings.
#pragma once

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

#include <oleauto.h>

#include <new>
#include <string_view>
#include <utility>

namespace VESK_BACK_END {

/// An allocated BSTR. Throws std::bad_alloc when memory runs out.
class Bstr {
public:
    explicit Bstr(std::u16string_view text)
        : m_text(::SysAllocStringLen(nullptr, static_cast<UINT>(text.size()))) {
        if (m_text == nullptr) {
            throw std::bad_alloc();
        }
        text.copy(reinterpret_cast<char16_t*>(m_text), text.size());
    }

    /// Takes ownership of a BSTR that an operation returned; it may be null.
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

/// The characters of a BSTR; none of a null one.
inline std::u16string_view ViewOf(BSTR text) {
    return {reinterpret_cast<const char16_t*>(text), ::SysStringLen(text)};
}

} // namespace VESK_BACK_END
