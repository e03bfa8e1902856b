// Every reading as JSON: value, unit, state, and what a failure means.
//
// Without a driver session the readings that need one have the state "no_session".
#include <vesk_sondrel.hpp>

#include <cstdio>
#include <sstream>

namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') {
            quoted += '\\';
            quoted += character;
        } else if (static_cast<unsigned char>(character) < ' ') {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(character));
            quoted += escape;
        } else {
            quoted += character;
        }
    }
    return quoted + '"';
}

// A value as JSON, by its type.
std::string Json(const vesk::String& text) {
    return Quoted(vesk::utf8(text));
}

std::string Json(const std::string& text) {
    return Quoted(text);
}

std::string Json(bool flag) {
    return flag ? "true" : "false";
}

template <class Number, std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>, int> = 0>
std::string Json(Number number) {
    std::ostringstream text;
    if constexpr (std::is_enum_v<Number>) {
        text << static_cast<std::int64_t>(number);
    } else {
        text << number;
    }
    return text.str();
}

template <class Unit, class Number>
std::string Json(const vesk::Quantity<Unit, Number>& quantity) {
    return Json(quantity.value);
}

template <class T>
std::string Json(const vesk::Result<T>& element) {
    return element ? Json(*element) : "null";
}

std::string Json(const vesk::Disk& disk) {
    return "{\"model\": " + Json(disk.model) + ", \"size\": " + Json(disk.size) + "}";
}

template <std::size_t Size>
std::string Json(const std::array<std::uint8_t, Size>& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(byte));
        text += digits;
    }
    return Quoted(text);
}

template <class T>
std::string Json(const std::vector<T>& list) {
    std::string text;
    for (const T& element : list) {
        text += (text.empty() ? "" : ", ") + Json(element);
    }
    return "[" + text + "]";
}

/// Prints each reading as it is made.
class Report {
public:
    template <class T>
    void operator()(const vesk::ReadingInfo& info, const vesk::Result<T>& result) {
        if (m_group != info.group) {
            std::printf("%s  %s: {\n", m_group.empty() ? "{\n" : "\n  },\n", Quoted(info.group).c_str());
            m_group = info.group;
        } else {
            std::printf(",\n");
        }
        std::printf("    %s: {\"state\": \"%s\"", Quoted(info.name).c_str(), to_string(result.state()));
        if (result) {
            std::printf(", \"value\": %s", Json(*result).c_str());
        }
        if (result && *info.unit != '\0') {
            std::printf(", \"unit\": %s", Quoted(info.unit).c_str());
        }
        const char* const meaning = result ? result.note() : result.failure().meaning();
        if (*meaning != '\0') {
            std::printf(", \"meaning\": %s", Quoted(meaning).c_str());
        }
        std::printf("}");
    }

    static void End() { std::printf("\n  }\n}\n"); }

private:
    std::string m_group;
};

} // namespace

int main() {
    std::string problem;
    const auto library = vesk::Library::load(vesk::detail::DefaultPath, problem);
    if (!library) {
        std::fprintf(stderr, "%s\n", problem.c_str());
        return 1;
    }
    const auto session = library->open_session();
    Report report;
    vesk::for_each_reading(*library, report); // the library knows that its session is open
    Report::End();
    return 0;
}
