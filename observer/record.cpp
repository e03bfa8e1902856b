#include "observer/record.h"

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstdio>
#include <span>

namespace observer {
namespace {

using Space = HandleKindRow::Space;

constexpr HandleKindRow HandleKinds[] = {
    {"file", Space::Handles},
    {"token", Space::Handles},
    {"process", Space::Handles},
    {"radio", Space::Handles},
    {"key", Space::Keys},
    {"devices", Space::DeviceInfoSets},
    {"wlan", Space::WlanClients},
    {"radios", Space::RadioSearches},
    {"search", Space::DeviceSearches},
    {"library", Space::Libraries},
    {"source", Space::EventSources},
    {"apartment", Space::Apartments},
    {"object", Space::Objects},
    {"IWbemLocator", Space::Objects},
    {"IWbemServices", Space::Objects},
    {"IEnumWbemClassObject", Space::Objects},
    {"IWbemClassObject", Space::Objects},
    {"IMMDeviceEnumerator", Space::Objects},
    {"IMMDevice", Space::Objects},
    {"IAudioEndpointVolume", Space::Objects},
    {"IXMLDOMDocument", Space::Objects},
    {"window", Space::Windows},
    {"node", Space::DeviceNodes},
    {"provider", Space::TraceProviders},
};

constexpr std::size_t LongestText = 200;
constexpr std::size_t MostBytes = 64;
constexpr std::size_t MostItems = 8;

/// Number of digits at least `width`.
void AppendHex(std::string& line, std::uint64_t number, std::size_t width) {
    char digits[16];
    const auto [end, error] = std::to_chars(digits, std::end(digits), number, 16);
    const auto length = static_cast<std::size_t>(end - digits);
    line.append(width > length ? width - length : 0, '0').append(digits, length);
}

void AppendUtf8(std::string& line, char32_t code) {
    const auto tail = [&](unsigned shift) {
        line += static_cast<char>(0x80 | (code >> shift & 0x3F));
    };
    if (code < 0x80) {
        line += static_cast<char>(code);
    } else if (code < 0x800) {
        line += static_cast<char>(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        line += static_cast<char>(0xE0 | code >> 12);
        tail(6);
        tail(0);
    } else {
        line += static_cast<char>(0xF0 | code >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

/// Control characters and unpaired surrogates are escaped, so that a line stays one line of UTF-8.
void AppendText(std::string& line, std::u16string_view text) {
    for (std::size_t place = 0; place < text.size(); ++place) {
        const char16_t unit = text[place];
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        if (high && place + 1 < text.size() && text[place + 1] >= 0xDC00 && text[place + 1] < 0xE000) {
            AppendUtf8(line, 0x10000 + ((unit & 0x3FFu) << 10) + (text[++place] & 0x3FFu));
        } else if (unit < 0x20 || unit == 0x7F || (unit >= 0xD800 && unit < 0xE000)) {
            line += "\\u";
            AppendHex(line, unit, 4);
        } else {
            AppendUtf8(line, unit);
        }
    }
}

void AppendLeftOut(std::string& line, std::size_t count, const char* what) {
    line.append("... (").append(std::to_string(count)).append(1, ' ').append(what).append(1, ')');
}

void AppendHandle(std::string& line, const HandleName& handle) {
    if (!handle.predefined.empty()) {
        line += handle.predefined;
        return;
    }
    line += RowOf(handle.kind).name;
    if (handle.number != 0) {
        line.append(1, '#').append(std::to_string(handle.number));
    } else if (!handle.openedOn.empty()) {
        line += ':';
        AppendText(line, handle.openedOn);
    }
}

struct Printer {
    std::string& line;

    void operator()(std::monostate) const { line += '-'; }

    void operator()(bool flag) const { line += flag ? "true" : "false"; }

    void operator()(const Number& number) const {
        if (!number.hexadecimal) {
            line += std::to_string(number.value);
            return;
        }
        line += "0x";
        AppendHex(line, static_cast<std::uint64_t>(number.value), 1);
    }

    void operator()(std::floating_point auto number) const {
        char text[32]; // the shortest that reads as the same number
        line.append(text, std::to_chars(text, std::end(text), number).ptr);
    }

    void operator()(const std::u16string& text) const {
        line += '"';
        AppendText(line, std::u16string_view(text).substr(0, LongestText));
        line += '"';
        if (text.size() > LongestText) {
            AppendLeftOut(line, text.size(), "characters");
        }
    }

    void operator()(const Bytes& bytes) const {
        for (const std::byte byte : std::span(bytes).first(std::min(bytes.size(), MostBytes))) {
            AppendHex(line, std::to_integer<unsigned>(byte), 2);
        }
        if (bytes.empty()) {
            line += '-';
        } else if (bytes.size() > MostBytes) {
            AppendLeftOut(line, bytes.size(), "bytes");
        }
    }

    void operator()(const platform::Guid& guid) const {
        char text[40];
        std::snprintf(text, sizeof text, "{%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x}",
                      static_cast<unsigned>(guid.data1), guid.data2, guid.data3, guid.data4[0], guid.data4[1],
                      guid.data4[2], guid.data4[3], guid.data4[4], guid.data4[5], guid.data4[6],
                      guid.data4[7]);
        line += text;
    }

    void operator()(const HandleName& handle) const { AppendHandle(line, handle); }

    void operator()(const List& list) const {
        line += '[';
        for (std::size_t place = 0; place < std::min(list.size(), MostItems); ++place) {
            line += place == 0 ? "" : ", ";
            std::visit(*this, list[place].held);
        }
        if (list.size() > MostItems) {
            AppendLeftOut(line, list.size(), "items");
        }
        line += ']';
    }

    void operator()(const Structure& fields) const {
        line += '{';
        AppendFields(fields, false);
        line += '}';
    }

    void AppendFields(const Structure& fields, bool blankFirst) const {
        for (const Field& field : fields) {
            line.append(blankFirst ? " " : "").append(field.name).append(1, '=');
            std::visit(*this, field.value.held);
            blankFirst = true;
        }
    }
};

} // namespace

const HandleKindRow& RowOf(HandleKind kind) {
    static_assert(std::size(HandleKinds) == static_cast<std::size_t>(HandleKind::TraceProvider) + 1);
    return HandleKinds[static_cast<std::size_t>(kind)];
}

const Value* Find(const Structure& fields, std::string_view name) {
    const auto found = std::ranges::find(fields, name, &Field::name);
    return found == fields.end() ? nullptr : &found->value;
}

const Value* Record::Input(std::string_view name) const {
    return Find(inputs, name);
}

const Value* Record::Output(std::string_view name) const {
    return Find(outputs, name);
}

std::string Printed(const Value& value) {
    std::string text;
    std::visit(Printer{text}, value.held);
    return text;
}

std::string PrintedInputs(Operation operation, const Structure& inputs) {
    std::string line(RowOf(operation).name);
    Printer{line}.AppendFields(inputs, true);
    return line;
}

std::string Printed(const Record& record) {
    const OperationRow& row = RowOf(record.operation);
    std::string line = PrintedInputs(record.operation, record.inputs);
    const Printer printer{line};
    if (record.outOfMemory) {
        return line + " -> out of memory";
    }
    if (row.returns != Returns::Nothing) {
        line += " -> ";
        std::visit(printer, record.result.held);
    }
    printer.AppendFields(record.outputs, true);
    if (record.lastError) {
        line.append(" error=").append(std::to_string(*record.lastError));
    }
    if (record.injected != Failure::None) {
        line += " (injected)";
    }
    return line;
}

} // namespace observer
