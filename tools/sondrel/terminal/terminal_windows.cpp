// The console of Windows.
//
// Output is written as UTF-16, independently of the console's code page, and characters are never split.
#include "terminal/terminal.h"

#include "unicode/utf.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <iostream>
#include <memory>
#include <streambuf>
#include <string>

namespace tool::terminal {
namespace {

constexpr DWORD Sequences = 0x0004; // ENABLE_VIRTUAL_TERMINAL_PROCESSING, from Windows 10 on

HANDLE HandleOf(Stream stream) {
    return GetStdHandle(stream == Stream::Out ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

void Send(HANDLE console, std::string_view utf8) {
    constexpr std::size_t LongestWrite = 8000; // older consoles accept 64 KB
    const std::u16string text = unicode::WideFromUtf8(utf8);
    for (std::size_t start = 0; start < text.size();) {
        std::size_t length = std::min(LongestWrite, text.size() - start);
        const char16_t last = text[start + length - 1];
        if (length > 1 && start + length < text.size() && last >= 0xD800 && last <= 0xDBFF) {
            --length; // surrogate pairs stay together
        }
        DWORD written = 0;
        if (WriteConsoleW(console, text.data() + start, static_cast<DWORD>(length), &written, nullptr) == 0) {
            return;
        }
        start += length;
    }
}

/// A stream buffer that writes to a console.
class ConsoleText : public std::streambuf {
public:
    explicit ConsoleText(HANDLE console) : m_console(console) {}

protected:
    int_type overflow(int_type next) override {
        if (next != traits_type::eof()) {
            const char character = traits_type::to_char_type(next);
            xsputn(&character, 1);
        }
        return traits_type::not_eof(next);
    }

    std::streamsize xsputn(const char* text, std::streamsize length) override {
        m_text.append(text, static_cast<std::size_t>(length));
        if (m_text.size() > 4096) {
            sync();
        }
        return length;
    }

    int sync() override {
        // An incomplete character waits for its last bytes.
        std::size_t whole = m_text.size();
        while (whole > 0 && m_text.size() - whole < 3 && (m_text[whole - 1] & 0xC0) == 0x80) {
            --whole;
        }
        const bool open = whole > 0 && (m_text[whole - 1] & 0xC0) == 0xC0 &&
                          m_text.size() - whole < MissingAfter(m_text[whole - 1]);
        const std::size_t ready = open ? whole - 1 : m_text.size();
        Send(m_console, std::string_view(m_text).substr(0, ready));
        m_text.erase(0, ready);
        return 0;
    }

private:
    static std::size_t MissingAfter(char lead) {
        const auto byte = static_cast<unsigned char>(lead);
        return byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
    }

    HANDLE m_console;
    std::string m_text;
};

/// A standard stream, and what it had before if it is a console.
struct Attached {
    Stream stream;
    std::ostream& text;
    DWORD modeBefore = 0;
    bool modeChanged = false;
    std::unique_ptr<ConsoleText> buffer;
    std::streambuf* bufferBefore = nullptr;
};

std::array<Attached, 2> TheStreams{Attached{.stream = Stream::Out, .text = std::cout},
                                   Attached{.stream = Stream::Error, .text = std::cerr}};
std::atomic<bool> ScreenIsOn = false;

} // namespace

bool IsTerminal(Stream stream) {
    DWORD mode = 0;
    return GetConsoleMode(HandleOf(stream), &mode) != 0;
}

bool SupportsSequences(Stream stream) {
    DWORD mode = 0;
    return GetConsoleMode(HandleOf(stream), &mode) != 0 && (mode & Sequences) != 0;
}

Size SizeOf(Stream stream) {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    Size size;
    if (GetConsoleScreenBufferInfo(HandleOf(stream), &info) != 0) {
        size.columns = static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
        size.lines = static_cast<std::size_t>(info.srWindow.Bottom - info.srWindow.Top + 1);
    }
    return size;
}

Console::Console() {
    for (Attached& one : TheStreams) {
        const HANDLE console = HandleOf(one.stream);
        if (GetConsoleMode(console, &one.modeBefore) == 0) {
            continue; // files and pipes take bytes
        }
        one.modeChanged = SetConsoleMode(console, one.modeBefore | ENABLE_PROCESSED_OUTPUT | Sequences) != 0;
        one.buffer = std::make_unique<ConsoleText>(console);
        one.bufferBefore = one.text.rdbuf(one.buffer.get());
    }
}

Console::~Console() {
    for (Attached& one : TheStreams) {
        one.text.flush();
        if (one.bufferBefore != nullptr) {
            one.text.rdbuf(one.bufferBefore);
            one.buffer.reset();
        }
    }
    Restore();
}

FullScreen::FullScreen() {
    std::cout.flush();
    ScreenIsOn = true;
    Send(HandleOf(Stream::Out), EnterScreen);
}

FullScreen::~FullScreen() {
    std::cout.flush();
    if (ScreenIsOn.exchange(false)) {
        Send(HandleOf(Stream::Out), LeaveScreen);
        FlushConsoleInputBuffer(GetStdHandle(STD_INPUT_HANDLE)); // discards keys typed meanwhile
    }
}

void Restore() noexcept {
    if (ScreenIsOn.exchange(false)) {
        DWORD written = 0;
        constexpr std::string_view Sequence = LeaveScreen;
        WriteConsoleA(HandleOf(Stream::Out), Sequence.data(), static_cast<DWORD>(Sequence.size()), &written,
                      nullptr);
    }
    for (const Attached& one : TheStreams) {
        if (one.modeChanged) {
            SetConsoleMode(HandleOf(one.stream), one.modeBefore);
        }
    }
}

} // namespace tool::terminal
