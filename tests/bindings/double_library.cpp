#include "double_library.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <sstream>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace {

void Wait(unsigned milliseconds) {
#ifdef _WIN32
    Sleep(milliseconds);
#else
    usleep(milliseconds * 1000);
#endif
}

/// Shared by threads, so that every use holds the lock. A spin lock: the win32 thread model has no std::mutex.
struct State {
    std::map<std::string, std::string> answers;
    std::map<std::string, std::string> arguments;
    std::vector<std::string> called;
    std::string shown;
};

std::atomic_flag locked = ATOMIC_FLAG_INIT;
std::atomic<int> within{0};
std::atomic<int> most{0};

class Lock {
public:
    Lock() {
        while (locked.test_and_set()) {
        }
    }

    ~Lock() { locked.clear(); }
};

State& TheState() {
    static State state;
    return state;
}

std::u16string Units(const std::string& utf8) {
    std::u16string text;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const int length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        unsigned code = length == 1 ? lead : lead & (0x7Fu >> length);
        for (int tail = 1; tail < length; ++tail) {
            code = code << 6 | (static_cast<unsigned char>(utf8[i + static_cast<std::size_t>(tail)]) & 0x3Fu);
        }
        i += static_cast<std::size_t>(length);
        if (code >= 0x10000) {
            text.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
            code = 0xDC00 + ((code - 0x10000) & 0x3FF);
        }
        text.push_back(static_cast<char16_t>(code));
    }
    return text;
}

std::string Hex(unsigned value, int digits) {
    std::string text;
    for (int i = digits - 1; i >= 0; --i) {
        text.push_back("0123456789abcdef"[value >> 4 * i & 0xF]);
    }
    return text;
}

int SizeOf(const std::string& name) {
    const auto found =
        std::find_if(known.begin(), known.end(), [&](const Known& each) { return name == each.name; });
    return found == known.end() ? 0 : found->size;
}

} // namespace

Call::Call(const char* name) : m_name(name) {
    const int now = ++within;
    for (int seen = most; now > seen && !most.compare_exchange_weak(seen, now);) {
    }
    std::string answer;
    {
        const Lock lock;
        State& state = TheState();
        if (std::find(state.called.begin(), state.called.end(), name) == state.called.end()) {
            state.called.emplace_back(name);
        }
        answer = state.answers[name];
    }
    std::istringstream words(answer);
    for (std::string word; words >> word;) {
        if (word == "slow") {
            Wait(30);
        } else if (word == "untouched") {
            m_untouched = true;
        } else if (word == "full") {
            m_text.assign(static_cast<std::size_t>(std::max(SizeOf(name) - 1, 0)), u'x');
        } else if (word == "number") {
            for (double number = 0; words >> number;) {
                m_numbers.push_back(number);
            }
            words.clear();
        } else if (word == "bytes") {
            words >> word;
            for (std::size_t i = 0; i + 1 < word.size(); i += 2) {
                m_bytes.push_back(
                    static_cast<std::uint8_t>(std::strtoul(word.substr(i, 2).c_str(), nullptr, 16)));
            }
        } else if (word == "units") {
            while (words >> word) {
                m_text.push_back(static_cast<char16_t>(std::strtoul(word.c_str(), nullptr, 16)));
            }
        } else if (word == "text") {
            std::string text;
            words.get();
            std::getline(words, text, '\0');
            m_text = Units(text);
        }
    }
}

Call::~Call() {
    --within;
}

void Call::Pass(const char* argument, std::int64_t number) const {
    const Lock lock;
    TheState().arguments[std::string(m_name) + " " + argument] = std::to_string(number);
}

void Call::Read(const std::uint8_t* bytes, int size) const {
    std::string hex;
    for (int i = 0; i < size; ++i) {
        hex += Hex(bytes[i], 2);
    }
    const Lock lock;
    TheState().arguments[std::string(m_name) + " bytes"] = hex;
}

void Call::Read(const VeskChar16* text, int) const {
    std::string hex;
    for (; text != nullptr && *text != 0; ++text) {
        hex += Hex(static_cast<unsigned>(*text), 4);
    }
    const Lock lock;
    TheState().arguments[std::string(m_name) + " path"] = hex;
}

void Call::Write(char* out) const {
    if (!m_untouched) {
        const std::string text = Text();
        std::memcpy(out, text.c_str(), text.size() + 1);
    }
}

void Call::Write(VeskChar16* out) const {
    if (!m_untouched) {
        std::copy(m_text.begin(), m_text.end(), out);
        out[m_text.size()] = 0;
    }
}

void Call::Write(std::uint8_t* out) const {
    std::copy(m_bytes.begin(), m_bytes.end(), out);
}

void Call::WriteRegisters(std::uint32_t* eax, std::uint32_t* ebx, std::uint32_t* ecx,
                          std::uint32_t* edx) const {
    std::uint32_t* const registers[] = {eax, ebx, ecx, edx};
    for (std::size_t i = 0; i < m_numbers.size() && i < 4; ++i) {
        *registers[i] = static_cast<std::uint32_t>(m_numbers[i]);
    }
}

std::string Call::Text() const {
    std::string text;
    for (std::size_t i = 0; i < m_text.size(); ++i) {
        unsigned code = m_text[i];
        if (code >= 0xD800 && code < 0xDC00 && i + 1 < m_text.size()) {
            code = 0x10000 + ((code - 0xD800) << 10) + (m_text[++i] - 0xDC00u);
        }
        const int tail = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        const unsigned char lead[] = {0, 0xC0, 0xE0, 0xF0};
        text.push_back(static_cast<char>(lead[tail] | code >> 6 * tail));
        for (int left = tail - 1; left >= 0; --left) {
            text.push_back(static_cast<char>(0x80 | (code >> 6 * left & 0x3F)));
        }
    }
    return text;
}

#ifdef VESK_DOUBLE_MSVC
void* MakeMsvcString(const std::string& text, void* place) {
    struct Object {
        union {
            char small[16];
            char* block;
        };

        std::size_t size;
        std::size_t capacity;
    };

    auto* const object = static_cast<Object*>(place);
    object->size = text.size();
    object->capacity = std::max<std::size_t>(text.size(), 15);
    char* characters = object->small;
    if (object->capacity > 15) {
        characters = static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, object->capacity + 1));
        object->block = characters;
    }
    std::memcpy(characters, text.c_str(), text.size() + 1);
    return place;
}
#endif

void Double_Set(const char* name, const char* answer) {
    const Lock lock;
    TheState().answers[name] = answer;
}

void Double_SetAll(const char* answer) {
    const Lock lock;
    for (const Known& each : known) {
        TheState().answers[each.name] = answer;
    }
}

const char* Double_Called(void) {
    const Lock lock;
    State& state = TheState();
    state.shown.clear();
    for (const std::string& name : state.called) {
        state.shown += (state.shown.empty() ? "" : " ") + name;
    }
    return state.shown.c_str();
}

const char* Double_All(void) {
    const Lock lock;
    State& state = TheState();
    state.shown.clear();
    for (const Known& each : known) {
        state.shown += (state.shown.empty() ? "" : " ") + std::string(each.name);
    }
    return state.shown.c_str();
}

int Double_Size(const char* name) {
    return SizeOf(name);
}

const char* Double_Argument(const char* name, const char* argument) {
    const Lock lock;
    State& state = TheState();
    state.shown = state.arguments[std::string(name) + " " + argument];
    return state.shown.c_str();
}

int Double_MostOverlapping(void) {
    return most;
}

void Double_Reset(void) {
    const Lock lock;
    TheState() = State();
    most = 0;
}
