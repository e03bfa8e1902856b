#include "recordings/redaction.h"

#include "base/error.h"
#include "observer/operations.h"
#include "observer/recording/json.h"
#include "observer/recording/recording.h"
#include "recordings/replacements.h"

#include <algorithm>
#include <functional>
#include <map>
#include <span>
#include <string_view>
#include <vector>

namespace tool {
namespace {

using observer::Bytes;
using observer::Field;
using observer::Find;
using observer::List;
using observer::Number;
using observer::Operation;
using observer::Structure;
using observer::Value;

/// How an identifying value is taken, and what is done with it.
enum class Take : std::uint8_t {
    Text,      // the string is replaced wherever it appears
    Account,   // "Domain\user", each of the two
    Uuid,      // its first 16 bytes
    WholeText, // the string is replaced in place
    Networks,  // names, addresses, elements and adapters of a wireless list, in place
};

struct Source {
    Operation operation;
    bool output;
    std::string_view argument;
    std::u16string_view name; // of the property, variable or value that the call names; empty: of any
    Secret kind;
    Take take;
};

/// Where each kind is. What is known by its form (addresses, SIDs, paths below a profile) is found everywhere, and what
/// is found here is replaced everywhere, also in what the EC returns byte by byte.
constexpr Source Sources[] = {
    {Operation::Get, true, "value", u"SerialNumber", Secret::Serial, Take::Text},
    {Operation::Get, true, "value", u"SerialNumberID", Secret::Serial, Take::Text},
    {Operation::Get, true, "value", u"AdapterSerialNumber", Secret::Serial, Take::Text},
    {Operation::Get, true, "value", u"IdentifyingNumber", Secret::Serial, Take::Text},
    {Operation::Get, true, "value", u"SKUNumber", Secret::Serial, Take::Text},
    {Operation::Get, true, "value", u"UUID", Secret::Uuid, Take::Text},
    {Operation::Get, true, "value", u"UserName", Secret::User, Take::Account},
    {Operation::Get, true, "value", u"RegisteredUser", Secret::User, Take::Text},
    {Operation::Get, true, "value", u"CSName", Secret::Computer, Take::Text},
    {Operation::Get, true, "value", u"DNSHostName", Secret::Computer, Take::Text},
    {Operation::Get, true, "value", u"Domain", Secret::Computer, Take::Text},
    {Operation::Get, true, "value", u"OEMStringArray", Secret::Oem, Take::WholeText},
    {Operation::RegQueryValueExW, false, "name", u"", Secret::User, Take::Account},
    {Operation::RegSetValueExW, false, "name", u"", Secret::User, Take::Account},
    {Operation::GetFirmwareEnvironmentVariableW, true, "data", u"CNFG", Secret::Uuid, Take::Uuid},
    {Operation::SetFirmwareEnvironmentVariableW, false, "data", u"CNFG", Secret::Uuid, Take::Uuid},
    {Operation::GetWindowTextW, true, "text", u"", Secret::Title, Take::WholeText},
    {Operation::WlanEnumInterfaces, true, "interfaces", u"", Secret::Uuid, Take::Networks},
    {Operation::WlanQueryInterface, true, "connection", u"", Secret::Ssid, Take::Networks},
    {Operation::WlanGetNetworkBssList, true, "entries", u"", Secret::Ssid, Take::Networks},
};

/// One line as it is read; its names are parts of the text.
struct Line {
    std::string_view kind;
    Structure fields;
};

Line Parsed(std::string_view text, std::size_t number) {
    try {
        Value value = observer::ParsedJson(text);
        if (auto* const fields = std::get_if<Structure>(&value.held); fields != nullptr && !fields->empty()) {
            return {fields->front().name, std::move(*fields)};
        }
    } catch (const observer::JsonError& problem) {
        throw observer::RecordingError("line " + std::to_string(number) + ": " + problem.what());
    }
    throw observer::RecordingError("line " + std::to_string(number) + ": this is no line of a recording");
}

template <class Held>
const Held* In(const Structure& fields, std::string_view name) {
    const Value* const value = Find(fields, name);
    return value == nullptr ? nullptr : std::get_if<Held>(&value->held);
}

Structure* PartOf(Line& line, std::string_view name) {
    const auto found = std::ranges::find(line.fields, name, &Field::name);
    return found == line.fields.end() ? nullptr : std::get_if<Structure>(&found->value.held);
}

std::int64_t NumberOf(const Line& line) {
    const auto* const number = std::get_if<Number>(&line.fields.front().value.held);
    return number == nullptr ? 0 : number->value;
}

/// Does something with each whole line.
void ForEachLine(std::string_view text, const std::function<void(Line&&)>& work) {
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos) {
            break;
        }
        work(Parsed(text.substr(0, end), number));
        text.remove_prefix(end + 1);
    }
}

/// What an EC command returned, one byte at a time.
struct EcByte {
    std::size_t place; // of its line among those that end a call
    std::byte value;
};

/// All lines are read several times: the first one collects, the last one writes.
class Pass {
public:
    enum class Purpose : std::uint8_t { Collect, ReadEc, Write };

    Pass(Replacements& replacements, Purpose purpose)
        : m_replacements(replacements), m_purpose(purpose), m_writes(purpose == Purpose::Write) {}

    void Do(Line& line);

    /// Strings that the EC returned byte by byte are read together.
    [[nodiscard]] std::map<std::size_t, std::byte> ReplacedEcBytes();

    void Use(std::map<std::size_t, std::byte> bytes) { m_replaced = std::move(bytes); }

private:
    struct Begun {
        Operation operation;
        std::u16string name;
        std::int64_t exportCall;
        bool readsEc; // one byte
    };

    void DoCall(Line& line);
    void DoEnd(Line& line);
    void Visit(Operation operation, bool output, const std::u16string& name, Structure& fields);
    void Use(const Source& source, Value& value);
    void UseNetworks(Value& value);
    void UseElements(Bytes& elements);
    void Replace(Value& value);
    void UseEcByte(const Begun& begun, Structure& outputs);

    Replacements& m_replacements;
    Purpose m_purpose;
    bool m_writes;
    std::map<std::int64_t, Begun> m_begun;
    std::size_t m_part = 0;
    std::size_t m_ends = 0;
    std::map<std::pair<std::size_t, std::int64_t>, std::vector<EcByte>> m_ecBytes; // by part and export call
    std::map<std::size_t, std::byte> m_replaced;
};

constexpr std::int64_t EcCommand = 0x80102070;
constexpr std::size_t EcReads = 10; // in the command: whether it reads a byte
constexpr std::size_t EcResult = 11;

void Pass::Do(Line& line) {
    if (line.kind == observer::line_kind::Header) {
        m_begun.clear();
        ++m_part;
        for (Field& field : line.fields) {
            auto* const text = std::get_if<std::u16string>(&field.value.held);
            if (text != nullptr && m_writes && field.name == "host") {
                *text = m_replacements.WholeText(Secret::Path, *text);
            }
        }
    } else if (line.kind == observer::line_kind::Export) {
        Structure* const arguments = PartOf(line, "arguments");
        for (Field& field :
             arguments == nullptr || !m_writes ? std::span<Field>() : std::span<Field>(*arguments)) {
            Replace(field.value);
        }
    } else if (line.kind == observer::line_kind::Call) {
        DoCall(line);
    } else if (line.kind == observer::line_kind::End) {
        DoEnd(line);
    }
}

void Pass::DoCall(Line& line) {
    const auto* const operationName = In<std::u16string>(line.fields, "operation");
    Structure* const inputs = PartOf(line, "in");
    if (operationName == nullptr || inputs == nullptr) {
        return;
    }
    const std::string narrow(operationName->begin(), operationName->end());
    const auto* const row =
        std::ranges::find(observer::OperationTable, std::string_view(narrow), &observer::OperationRow::name);
    if (row == std::end(observer::OperationTable)) {
        return;
    }
    const auto operation = Operation{static_cast<std::uint16_t>(row - observer::OperationTable)};
    const auto* const name = In<std::u16string>(*inputs, "name");
    const auto* const exportCall = In<Number>(line.fields, "of");
    const auto* const code = In<Number>(*inputs, "code");
    const auto* const command = In<Bytes>(*inputs, "in");
    m_begun[NumberOf(line)] = {operation, name == nullptr ? std::u16string() : *name,
                               exportCall == nullptr ? 0 : exportCall->value,
                               code != nullptr && code->value == EcCommand && command != nullptr &&
                                   command->size() > EcReads && (*command)[EcReads] != std::byte{0}};
    Visit(operation, false, name == nullptr ? std::u16string() : *name, *inputs);
}

void Pass::DoEnd(Line& line) {
    ++m_ends;
    const auto begun = m_begun.find(NumberOf(line));
    if (begun == m_begun.end()) {
        return;
    }
    if (Structure* const outputs = PartOf(line, "out"); outputs != nullptr) {
        UseEcByte(begun->second, *outputs);
        Visit(begun->second.operation, true, begun->second.name, *outputs);
    }
    m_begun.erase(begun);
}

void Pass::UseEcByte(const Begun& begun, Structure& outputs) {
    const auto found = std::ranges::find(outputs, "out", &Field::name);
    auto* const bytes = found == outputs.end() ? nullptr : std::get_if<Bytes>(&found->value.held);
    if (!begun.readsEc || bytes == nullptr || bytes->size() <= EcResult) {
        return;
    }
    if (m_purpose == Purpose::ReadEc) {
        m_ecBytes[{m_part, begun.exportCall}].push_back({m_ends, (*bytes)[EcResult]});
    } else if (const auto replaced = m_replaced.find(m_ends); replaced != m_replaced.end()) {
        (*bytes)[EcResult] = replaced->second;
    }
}

std::map<std::size_t, std::byte> Pass::ReplacedEcBytes() {
    std::map<std::size_t, std::byte> replaced;
    for (const auto& [exportCall, read] : m_ecBytes) {
        Bytes together;
        for (const EcByte& each : read) {
            together.push_back(each.value);
        }
        const Bytes without = m_replacements.Block(together);
        for (std::size_t i = 0; i < read.size(); ++i) {
            if (without[i] != together[i]) {
                replaced.emplace(read[i].place, without[i]);
            }
        }
    }
    return replaced;
}

void Pass::Visit(Operation operation, bool output, const std::u16string& name, Structure& fields) {
    m_replacements.TakeForVersions(name.find(u"Version") != std::u16string::npos);
    for (Field& field : fields) {
        const auto* const source = std::ranges::find_if(Sources, [&](const Source& each) {
            return each.operation == operation && each.output == output && each.argument == field.name &&
                   (each.name.empty() || each.name == name);
        });
        if (source != std::end(Sources) && m_purpose != Purpose::ReadEc) {
            Use(*source, field.value);
        }
        const bool whole = source != std::end(Sources) && source->take == Take::WholeText;
        if (m_writes && !whole) {
            Replace(field.value);
        }
    }
}

void Pass::Use(const Source& source, Value& value) {
    if (source.take == Take::Networks) {
        UseNetworks(value);
        return;
    }
    if (auto* const list = std::get_if<List>(&value.held); list != nullptr) {
        for (Value& item : *list) {
            Use(source, item);
        }
    }
    if (auto* const bytes = std::get_if<Bytes>(&value.held); bytes != nullptr && source.take == Take::Uuid) {
        m_replacements.AddBytes(
            source.kind,
            Bytes(bytes->begin(), bytes->begin() + std::min<std::ptrdiff_t>(16, std::ssize(*bytes))));
    }
    auto* const text = std::get_if<std::u16string>(&value.held);
    if (text == nullptr) {
        return;
    }
    if (source.take == Take::Text) {
        m_replacements.AddText(source.kind, *text);
    } else if (source.take == Take::Account && (source.output || text->find(u'\\') != std::u16string::npos)) {
        m_replacements.AddAccount(*text);
    } else if (source.take == Take::WholeText && m_writes) {
        *text = m_replacements.WholeText(source.kind, *text);
    }
}

void Pass::UseNetworks(Value& value) {
    if (auto* const list = std::get_if<List>(&value.held); list != nullptr) {
        std::ranges::for_each(*list, [this](Value& item) { UseNetworks(item); });
    }
    auto* const fields = std::get_if<Structure>(&value.held);
    for (Field& field : fields == nullptr ? std::span<Field>() : std::span<Field>(*fields)) {
        if (const auto* const guid = std::get_if<platform::Guid>(&field.value.held); guid != nullptr) {
            m_replacements.AddGuid(*guid);
        }
        auto* const bytes = std::get_if<Bytes>(&field.value.held);
        if (bytes == nullptr) {
            continue;
        }
        if (field.name == "bssid") {
            m_replacements.AddBytes(Secret::NetAddress, *bytes);
        } else if (field.name == "ssid" && m_writes) {
            *bytes = m_replacements.Ssid(*bytes);
        } else if (field.name == "ssid") {
            m_replacements.AddText(
                Secret::Ssid,
                std::u16string(reinterpret_cast<const unsigned char*>(bytes->data()),
                               reinterpret_cast<const unsigned char*>(bytes->data()) + bytes->size()));
        } else if (field.name == "elements" && m_writes) {
            UseElements(*bytes);
        }
    }
}

/// Element 0 is the SSID again.
void Pass::UseElements(Bytes& elements) {
    for (std::size_t place = 0; place + 2 <= elements.size();) {
        const std::size_t length =
            std::min(std::to_integer<std::size_t>(elements[place + 1]), elements.size() - place - 2);
        if (elements[place] == std::byte{0}) {
            const auto start = elements.begin() + static_cast<std::ptrdiff_t>(place) + 2;
            std::ranges::copy(m_replacements.Ssid(Bytes(start, start + static_cast<std::ptrdiff_t>(length))),
                              start);
        }
        place += 2 + length;
    }
}

void Pass::Replace(Value& value) {
    if (auto* const text = std::get_if<std::u16string>(&value.held); text != nullptr) {
        *text = m_replacements.Text(std::move(*text));
    } else if (auto* const bytes = std::get_if<Bytes>(&value.held); bytes != nullptr) {
        *bytes = m_replacements.Block(std::move(*bytes));
    } else if (auto* const guid = std::get_if<platform::Guid>(&value.held); guid != nullptr) {
        *guid = m_replacements.Guid(*guid);
    } else if (auto* const handle = std::get_if<observer::HandleName>(&value.held); handle != nullptr) {
        handle->openedOn = m_replacements.Text(std::move(handle->openedOn));
    } else if (auto* const list = std::get_if<List>(&value.held); list != nullptr) {
        std::ranges::for_each(*list, [this](Value& item) { Replace(item); });
    } else if (auto* const fields = std::get_if<Structure>(&value.held); fields != nullptr) {
        std::ranges::for_each(*fields, [this](Field& field) { Replace(field.value); });
    }
}

void Write(std::string& text, Structure fields) {
    observer::AppendJson(text, {std::move(fields)});
    text += '\n';
}

} // namespace

std::string RedactedCalls(const std::string& text) {
    Replacements replacements;
    Pass collects(replacements, Pass::Purpose::Collect);
    ForEachLine(text, [&](Line&& line) { collects.Do(line); });
    Pass readsEc(replacements, Pass::Purpose::ReadEc);
    ForEachLine(text, [&](Line&& line) { readsEc.Do(line); });
    Pass writes(replacements, Pass::Purpose::Write);
    writes.Use(readsEc.ReplacedEcBytes());
    std::string redacted;
    ForEachLine(text, [&](Line&& line) {
        writes.Do(line);
        if (line.kind == observer::line_kind::Header) {
            std::erase_if(line.fields, [](const Field& field) { return field.name == "redacted"; });
            line.fields.push_back({"redacted", {true}});
        }
        Write(redacted, std::move(line.fields));
    });
    return redacted;
}

/// In a replay the export calls of each part are made in their order, and so numbered.
std::string WithResultsOf(const std::string& text, const std::string& replayed) {
    using Place = std::pair<std::size_t, std::int64_t>; // part and number there
    std::map<Place, Structure> results;
    std::size_t part = 0;
    ForEachLine(replayed, [&](Line&& line) {
        part += line.kind == observer::line_kind::Header ? 1 : 0;
        if (line.kind == observer::line_kind::Return) {
            const Place place{part, NumberOf(line)};
            results.emplace(place, std::move(line.fields));
        }
    });
    std::map<Place, std::int64_t> numbers; // in the replay
    std::int64_t count = 0;
    part = 0;
    std::string made;
    ForEachLine(text, [&](Line&& line) {
        if (line.kind == observer::line_kind::Header) {
            ++part;
            count = 0;
        } else if (line.kind == observer::line_kind::Export) {
            numbers[{part, NumberOf(line)}] = ++count;
        } else if (line.kind == observer::line_kind::Return) {
            const auto found = results.find({part, numbers[{part, NumberOf(line)}]});
            if (found == results.end()) {
                throw Error("the redacted recording could not be replayed to its end");
            }
            for (Field& field : line.fields) {
                const Value* const result = Find(found->second, field.name);
                if (result != nullptr && (field.name == "result" || field.name == "buffers")) {
                    field.value = *result;
                }
            }
        }
        Write(made, std::move(line.fields));
    });
    return made;
}

} // namespace tool
