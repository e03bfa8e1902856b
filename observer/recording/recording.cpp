#include "observer/recording/recording.h"

#include "observer/recording/json.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace observer {
namespace {

[[noreturn]] void Fail(std::size_t line, const std::string& problem) {
    throw RecordingError(std::string("line ").append(std::to_string(line)).append(": ").append(problem));
}

/// Adds line by line to the export calls.
class Assembly {
public:
    explicit Assembly(std::vector<RecordedExport>& exports) : m_exports(exports) {}

    void BeginPart(std::size_t part) {
        m_part = part;
        m_exportPlaces.clear();
        m_open.clear();
    }

    void Add(Structure& fields, std::size_t line) {
        m_line = line;
        m_incomplete = m_incomplete || Has(fields, "incomplete");
        const std::string_view kind = fields.front().name;
        const std::int64_t number = NumberIn(fields, kind);
        if (kind == line_kind::Export) {
            AddExport(fields, number);
        } else if (kind == line_kind::Return) {
            AddReturn(fields, number);
        } else if (kind == line_kind::Call) {
            AddCall(fields, number);
        } else if (kind == line_kind::End) {
            AddEnd(fields, number);
        } else {
            Fail(line,
                 std::string("there are no lines of the kind \"").append(kind.substr(0, 40)).append("\""));
        }
    }

private:
    struct OpenCall {
        std::size_t exportPlace;
        std::size_t callPlace;
    };

    template <class Held>
    Held Take(Structure& fields, std::string_view name) const {
        for (Field& field : fields) {
            if (auto* const held = std::get_if<Held>(&field.value.held);
                held != nullptr && field.name == name) {
                return std::move(*held);
            }
        }
        Fail(m_line, std::string("\"").append(name.substr(0, 40)).append("\" is missing or of another type"));
    }

    std::int64_t NumberIn(Structure& fields, std::string_view name) const {
        return Take<Number>(fields, name).value;
    }

    std::string NameIn(Structure& fields, std::string_view name) const {
        const auto wide = Take<std::u16string>(fields, name);
        std::string narrow;
        std::ranges::transform(wide, std::back_inserter(narrow),
                               [](char16_t unit) { return unit < 0x7F ? static_cast<char>(unit) : '?'; });
        return narrow;
    }

    static Value TakeResult(Structure& fields) {
        const auto found = std::ranges::find(fields, "result", &Field::name);
        return found == fields.end() ? Value{} : std::move(found->value);
    }

    static bool Has(const Structure& fields, std::string_view name) { return Find(fields, name) != nullptr; }

    RecordedExport& ExportIn(std::int64_t number) {
        const auto found = m_exportPlaces.find(number);
        if (found == m_exportPlaces.end()) {
            Fail(m_line, "it belongs to an export call that does not begin before it");
        }
        return m_exports[found->second];
    }

    void AddExport(Structure& fields, std::int64_t number) {
        if (!m_exportPlaces.emplace(number, m_exports.size()).second) {
            Fail(m_line, "this export call has begun before");
        }
        m_exports.push_back({.name = NameIn(fields, "name"),
                             .part = m_part,
                             .line = m_line,
                             .arguments = Take<Structure>(fields, "arguments")});
    }

    void AddReturn(Structure& fields, std::int64_t number) {
        RecordedExport& call = ExportIn(number);
        if (call.returnLine != 0) {
            Fail(m_line, "this export call has returned before");
        }
        call.returnLine = m_line;
        call.result = TakeResult(fields);
        if (Has(fields, "buffers")) {
            call.buffers = Take<Structure>(fields, "buffers");
        }
    }

    void AddCall(Structure& fields, std::int64_t number) {
        const std::string name = NameIn(fields, "operation");
        const auto* const row =
            std::ranges::find(OperationTable, std::string_view(name), &OperationRow::name);
        if (row == std::end(OperationTable)) {
            Fail(m_line, std::string("there is no operation \"").append(name, 0, 40).append("\""));
        }
        const std::int64_t exportNumber = NumberIn(fields, "of");
        if (row->reports || exportNumber == 0) {
            if (!m_open.emplace(number, OpenCall{Ignored, 0}).second) {
                Fail(m_line, "this call has begun before");
            }
            return;
        }
        RecordedExport& call = ExportIn(exportNumber);
        if (call.returnLine != 0) {
            Fail(m_line, "its export call has returned before");
        }
        if (!m_open.emplace(number, OpenCall{m_exportPlaces[exportNumber], call.calls.size()}).second) {
            Fail(m_line, "this call has begun before");
        }
        call.calls.push_back({.operation = Operation{static_cast<std::uint16_t>(row - OperationTable)},
                              .line = m_line,
                              .inputs = Take<Structure>(fields, "in"),
                              .incomplete = Has(fields, "incomplete")});
    }

    void AddEnd(Structure& fields, std::int64_t number) {
        const auto found = m_open.find(number);
        if (found == m_open.end()) {
            if (m_incomplete) {
                return; // its beginning could not be noted
            }
            Fail(m_line, "it ends a call that does not begin before it");
        }
        const auto [exportPlace, callPlace] = found->second;
        m_open.erase(found);
        if (exportPlace == Ignored) {
            return;
        }
        RecordedCall& call = m_exports[exportPlace].calls[callPlace];
        call.ended = true;
        call.result = TakeResult(fields);
        call.outOfMemory = Has(fields, "out_of_memory");
        call.incomplete = call.incomplete || Has(fields, "incomplete");
        if (Has(fields, "out")) {
            call.outputs = Take<Structure>(fields, "out");
        }
        if (Has(fields, "error")) {
            call.lastError = static_cast<std::uint32_t>(NumberIn(fields, "error"));
        }
    }

    static constexpr std::size_t Ignored = ~std::size_t{0};

    std::vector<RecordedExport>& m_exports;
    std::map<std::int64_t, std::size_t> m_exportPlaces;
    std::map<std::int64_t, OpenCall> m_open;
    std::size_t m_part = 0;
    std::size_t m_line = 0;
    bool m_incomplete = false; // something is missing for lack of memory
};

/// Whether a line begins a part, without reading it.
bool IsHeader(std::string_view line) {
    return line.substr(0, 2 + line_kind::Header.size()).find(line_kind::Header) != std::string_view::npos;
}

} // namespace

Recording::Recording(std::string text, std::size_t onlyPart) : m_text(std::move(text)) {
    Read(onlyPart);
    m_firstPart = std::max<std::size_t>(onlyPart, 1);
}

void Recording::Read(std::size_t onlyPart) {
    Assembly assembly(m_exports);
    std::string_view rest = m_text;
    for (std::size_t number = 1; !rest.empty(); ++number) {
        const std::size_t end = rest.find('\n');
        if (end == std::string_view::npos) {
            m_cutLine = number;
            break;
        }
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        const bool begins = IsHeader(line);
        if (begins) {
            m_headers.emplace_back();
        } else if (m_headers.empty()) {
            Fail(number, "this is no recording: it does not begin with a header");
        }
        if (!begins && onlyPart != 0 && onlyPart != Parts()) {
            continue;
        }
        try {
            Value value = ParsedJson(line);
            auto* const fields = std::get_if<Structure>(&value.held);
            if (fields == nullptr || fields->empty()) {
                Fail(number, "this is no line of a recording");
            }
            if (!begins) {
                assembly.Add(*fields, number);
                continue;
            }
            const auto* const version = std::get_if<Number>(&fields->front().value.held);
            if (version == nullptr || version->value != RecordingVersion) {
                Fail(number, std::string("the recording has another format than version ")
                                 .append(std::to_string(RecordingVersion)));
            }
            assembly.BeginPart(Parts());
            m_headers.back() = std::move(*fields);
        } catch (const JsonError& problem) {
            Fail(number,
                 std::string(problem.what()) + ", at character " + std::to_string(problem.Place() + 1));
        }
    }
    if (m_headers.empty()) {
        Fail(1, "this is no recording: it does not begin with a header");
    }
    if (onlyPart > Parts()) {
        throw RecordingError(std::string("there is no part ").append(std::to_string(onlyPart)));
    }
}

std::string KeyOf(std::string_view exportName, const Structure& arguments) {
    std::string key(exportName);
    AppendJson(key, {arguments});
    return key;
}

} // namespace observer
