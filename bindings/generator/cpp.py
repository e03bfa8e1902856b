"""The generated headers of the C++ binding: units, states and the table of exports; the groups of readings."""

from __future__ import annotations

from model import NOTICE, Model, Reading, pascal

MATCHES = {"untouched": "untouched", "zeros": "zeros", "error_code": "error_code", "other": "other"}
NUMBERS = {"int32": "std::int32_t", "uint32": "std::uint32_t", "float": "float", "double": "double", "uint8": "std::uint8_t"}
LIST_NUMBER = "std::int64_t"


def quoted(text: str) -> str:
    """A literal that no source encoding changes: bytes beyond ASCII end the literal and begin another one."""
    pieces, plain = [], ""
    for byte in text.encode("utf-8"):
        if byte < 0x80:
            plain += {'"': '\\"', "\\": "\\\\"}.get(chr(byte), chr(byte))
            continue
        pieces += [f'"{plain}"'] * bool(plain) + [f'"\\x{byte:02X}"']
        plain = ""
    return " ".join(pieces + [f'"{plain}"'] * bool(plain or not pieces))


def head(name: str, what: str) -> str:
    guard = f"VESK_SONDREL_GENERATED_{name.upper()}_HPP"
    return f"""/**
 * @file
 * {what} {NOTICE}. Include vesk_sondrel.hpp.
 */
// clang-format off
#ifndef {guard}
#define {guard}
"""


def comment(lines: list, indent: str = "    ") -> str:
    return "".join(f"{indent}/// {line}\n" for line in lines)


def description_header(model: Model) -> str:
    states = "".join(f"    {name}, ///< {words}\n" for name, words in model.states.items())
    cases = "".join(f"    case State::{name}:\n        return \"{name}\";\n" for name in model.states)
    words = "".join(f"    case State::{name}:\n        return {quoted(text)};\n" for name, text in model.states.items())
    units = "".join(
        f"struct {unit['name']} {{\n    static constexpr const char* symbol = {quoted(symbol)};\n}};\n"
        for symbol, unit in model.units.items()
    )
    members = "".join(f"    {member(export)} = nullptr;\n" for export in model.exports)
    finds = "".join(
        f'    if (!find("{export["name"]}", exports.{export["name"]})) {{\n        return "{export["name"]}";\n    }}\n'
        for export in model.exports
    )
    return f"""{head("description", "States, units, and the exports by name.")}
#include "../../vesk_sondrel.h"

#include <cstdint>

namespace vesk {{

/// What an answer means.
enum class State : std::uint8_t {{
{states}}};

/// "not_read"
constexpr const char* to_string(State state) noexcept {{
    switch (state) {{
{cases}    }}
    return "";
}}

/// "the reading was tried and failed"
constexpr const char* meaning_of(State state) noexcept {{
    switch (state) {{
{words}    }}
    return "";
}}

/// The units of quantities.
namespace unit {{
{units}}} // namespace unit

/// All exports as they are, for what a host wants to call without this header's help. Two return a string object of
/// C++: it is written to the 32 bytes given.
struct Exports {{
{members}}};

namespace detail {{

/// Fills the table; returns the name of the first export that find() does not find, or null.
template <class Find>
const char* find_all(Exports& exports, Find find) {{
{finds}    return nullptr;
}}

}} // namespace detail
}} // namespace vesk

#endif
"""


def member(export: dict) -> str:
    if export["result"]["type"] == "string":
        return f"void* (*{export['name']})(void*)"
    return f"decltype(&::{export['name']}) {export['name']}"


class Answers:
    """The tables of special answers; equal ones are written once."""

    def __init__(self) -> None:
        self.text = ""
        self._names = {}

    def name(self, reading: Reading) -> str:
        if not reading.answers:
            return ""
        rows = "".join(row(answer) for answer in reading.answers)
        if rows not in self._names:
            self._names[rows] = f"answers_of_{reading.name}"
            self.text += f"inline constexpr Answer {self._names[rows]}[] = {{\n{rows}}};\n"
        return self._names[rows]


def row(answer: dict) -> str:
    plain, number, text = answer.get("value"), 0, '""'
    if "special" in answer:
        match = MATCHES[answer["special"]]
    elif isinstance(plain, int):
        match, number = "element" if answer["at"] == "element" else "number", plain
    else:
        match, text = "string", quoted(plain)
    states = ", ".join(f"State::{state}" for state in answer["states"])
    return f"    {{Match::{match}, {number}, {text}, {{{states}}}, {quoted(answer['meaning'])}}},\n"


def entry(reading: Reading, answers: Answers) -> str:
    table = answers.name(reading)
    size = f"sizeof {table} / sizeof *{table}" if table else "0"
    name = "opening" if reading.short == "initialize" else f"entry_of_{reading.name}"
    info = ", ".join(
        quoted(text)
        for text in (reading.group, reading.short, reading.name, reading.export["summary"], reading.unit or "")
    )
    return f"inline constexpr Entry {name}{{\n    {{{info}}},\n    {table or 'nullptr'}, {size}}};\n"


def string_type(reading: Reading) -> str:
    return "String" if reading.shape == "wide" else "std::string"


def number_type(number: str, unit_name) -> str:
    return f"Quantity<unit::{unit_name}, {number}>" if unit_name else number


def value_type(reading: Reading) -> str:
    """T of the Result."""
    kind = reading.kind
    if reading.setter:
        return "void"
    if kind in ("number", "version", "fraction"):
        return number_type(NUMBERS[reading.export["result"]["type"]], reading.unit_name)
    if kind == "list":
        return f"std::vector<{element_type(reading)}>"
    return {
        "flag": "bool",
        "choice": pascal(reading.short),
        "letters": "std::string",
        "registers": "Registers",
        "bytes": f"std::array<std::uint8_t, {reading.size if kind == 'bytes' else 0}>",
    }.get(kind, string_type(reading))


def element_type(reading: Reading) -> str:
    if reading.record:
        return pascal(reading.record)
    if reading.value["element"]["kind"] == "number":
        return f"Result<{number_type(LIST_NUMBER, reading.unit_name)}>"
    return string_type(reading)


def parameters(reading: Reading, defaults: bool) -> str:
    found = []
    if reading.argument:
        kind = reading.argument["type"]
        if kind == "bytes":
            found.append(f"const std::array<std::uint8_t, {reading.size}>& {reading.argument['name']}")
        elif kind == "wide_text":
            found.append(f"const VeskChar16* {reading.argument['name']}")
        else:
            found.append(f"{NUMBERS[kind]} {reading.argument['name']}")
    if reading.com:
        found.append("Com com" + " = Com::enter" * defaults)
    if reading.grows:
        found.append("std::size_t characters" + f" = {reading.size}" * defaults)
    return ", ".join(found)


def call(reading: Reading) -> str:
    """The body of the method."""
    name, entry_name = reading.name, f"detail::entry_of_{reading.name}"
    com = "static_cast<std::uint8_t>(com)"
    function = f"exports().{name}"
    before = f"module(), {entry_name}"
    with_com = f", {com}" if reading.com else ""
    terminated = "true" if reading.value.get("terminated") else "false"
    if reading.setter:
        given = reading.argument["name"] + (".data()" if reading.argument["type"] == "bytes" else "")
        return f"detail::done({entry_name}, {function}({given}{with_com}))"
    if reading.shape == "number":
        given = [reading.argument["name"]] if reading.argument else []
        arguments = ", ".join(given + [com] * reading.com)
        return f"detail::read_number<{value_type(reading)}>({before}, {function}({arguments}))"
    if reading.shape == "registers":
        words = "&words.eax, &words.ebx, &words.ecx, &words.edx"
        call_ = f"[&](Registers& words) {{ {function}({reading.argument['name']}, {words}); }}"
        return f"detail::read_registers({before}, {call_})"
    if reading.shape == "bytes":
        return f"detail::read_bytes<{reading.size}>({before}, {function})"
    if reading.shape == "string":
        if reading.kind == "list":
            return f"detail::read_string_list<{element_type(reading)}>({before}, {terminated}, {function})"
        return f"detail::read_string({before}, {function})"
    char = "VeskChar16" if reading.shape == "wide" else "char"
    lambda_ = f"[&]({char}* out) {{ {function}(out{with_com}); }}"
    if reading.record:
        fields = len(reading.value["record"])
        return f"detail::read_records<{pascal(reading.record)}, {fields}, {reading.size}>({before}, {lambda_})"
    if reading.kind == "list":
        if reading.grows:
            return f"detail::read_long_list<{element_type(reading)}>({before}, {terminated}, characters, {lambda_})"
        return f"detail::read_list<{element_type(reading)}, {char}, {reading.size}>({before}, {terminated}, {lambda_})"
    if reading.shape == "narrow":
        return f"detail::read_narrow<{reading.size}>({before}, {lambda_})"
    return f"detail::read_wide({before}, {'characters' if reading.grows else reading.size}, {lambda_})"


def choice(reading: Reading) -> str:
    rows = "".join(f"    {name} = {value}, ///< {meaning}\n" for name, value, meaning in reading.choices())
    return f"""/// {reading.export['summary']}.
enum class {pascal(reading.short)} : {NUMBERS[reading.export['result']['type']]} {{
{rows}}};

"""


def record(reading: Reading, model: Model) -> str:
    name = pascal(reading.record)
    members, makers = "", ""
    for place, field in enumerate(reading.value["record"]):
        if field["kind"] == "number":
            unit_name = model.units[field["unit"]]["name"] if "unit" in field else None
            kind = f"Result<{number_type(LIST_NUMBER, unit_name)}>"
        else:
            kind = "String"
        members += f"    {kind} {field['name']};\n"
        makers += f"\n            detail::element_of<{kind}>(module, entry, fields[{place}]),"
    count = len(reading.value["record"])
    return f"""/// {reading.export['summary']}.
struct {name} {{
{members}
    static {name} from(const detail::Module& module, const detail::Entry& entry,
                     const std::array<StringView, {count}>& fields) {{
        return {{{makers}
        }};
    }}
}};

"""


def group_class(model: Model, group: dict) -> str:
    methods = ""
    for reading in model.of_group(group["id"]):
        lines = model.documentation(reading)
        if reading.grows:
            lines.insert(-1, f"characters: the size of the buffer; the library does not know it, and {reading.size} is enough for known machines.")
        methods += comment(lines)
        methods += f"    [[nodiscard]] Result<{value_type(reading)}> {reading.short}({parameters(reading, True)}) const {{\n"
        methods += f"        return {call(reading)};\n    }}\n\n"
    return f"""/// {group['title']}.
class {pascal(group['id'])}Readings : public detail::Group {{
public:
    using Group::Group;

{methods.rstrip()}
}};

"""


def readings_header(model: Model) -> str:
    answers = Answers()
    entries = "".join(entry(reading, answers) for reading in [model.opening] + model.readings)
    types = "".join(choice(r) for r in model.readings if r.kind == "choice")
    types += "".join(record(r, model) for r in model.readings if r.record)
    classes = "".join(group_class(model, group) for group in model.groups)
    accessors = "".join(
        f"    /// {group['title']}.\n"
        f"    [[nodiscard]] {pascal(group['id'])}Readings {group['id']}() const noexcept "
        f"{{ return {pascal(group['id'])}Readings(*m_module); }}\n"
        for group in model.groups
    )
    visits = "".join(
        f"    visit(detail::entry_of_{r.name}.info, readings.{r.group}().{r.short}({'com' if r.com else ''}));\n"
        for r in model.readings
        if not r.setter and not r.argument
    )
    return f"""{head("readings", "The readings by group.")}
#include "../call.hpp"

namespace vesk {{
namespace detail {{

{answers.text}
{entries}
}} // namespace detail

{types}{classes}/// All groups. Of a Library or a Session.
class Readings {{
public:
{accessors}
    /// The exports as they are.
    [[nodiscard]] const Exports& exports() const noexcept {{ return m_module->exports; }}

protected:
    explicit Readings(std::shared_ptr<detail::Module> module) noexcept : m_module(std::move(module)) {{}}

    std::shared_ptr<detail::Module> m_module;
}};

/// Makes each reading that takes no argument, in the order of vesk_sondrel.h: visit(const ReadingInfo&, Result<...>).
template <class Visitor>
void for_each_reading(const Readings& readings, Visitor&& visit, Com com = Com::enter) {{
{visits}}}

}} // namespace vesk

#endif
"""


def files(model: Model) -> dict:
    directory = "include/vesk_sondrel/generated/"
    return {
        directory + "description.hpp": description_header(model),
        directory + "readings.hpp": readings_header(model),
    }
