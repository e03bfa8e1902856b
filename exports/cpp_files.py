"""The generated C++: the table of exports, what the fault sweep expects, and the wrappers of the observed library."""

from __future__ import annotations

import json

import c_types
from description import Description, DescriptionError, user_argument

# Each way in which exports are called has a name in C++.
SIGNATURES = {
    "void()": "NoResult",
    "int32_t()": "Int32",
    "uint32_t()": "Uint32",
    "float()": "Float",
    "double()": "Double",
    "std::string()": "String",
    "void(char*)": "NarrowText",
    "void(VeskChar16*)": "WideText",
    "void(VeskChar16*, uint8_t)": "WideTextCom",
    "int32_t(uint8_t)": "Int32Com",
    "int32_t(int32_t, uint8_t)": "SetInt32Com",
    "int32_t(uint8_t, uint8_t)": "SetUint8Com",
    "int32_t(const VeskChar16*, uint8_t)": "SetWideTextCom",
    "uint32_t(uint8_t*)": "ReadBytes",
    "uint32_t(const uint8_t*)": "WriteBytes",
    "void(uint32_t, uint32_t*, uint32_t*, uint32_t*, uint32_t*)": "Registers",
    "uint32_t(uint32_t)": "Uint32OfUint32",
}

DISPLAYS = {
    "fraction": "Fraction",
    "version": "Hexadecimal",
    "letters": "Letters",
    "list": "List",
    "document": "Document",
    "bytes": "Bytes",
    "registers": "Registers",
}

NO_REGISTER_SET = " ".join(["00000000"] * 4)


def camel(name: str) -> str:
    return "".join(word.capitalize() for word in name.split("_"))


def string(text: str) -> str:
    """A C++ string literal. The sources are UTF-8, so only quotes and backslashes are escaped."""
    return json.dumps(text, ensure_ascii=False)


def signature_name(export: dict) -> str:
    signature = c_types.signature(export)
    if signature not in SIGNATURES:
        raise DescriptionError(f"{export['name']}: give the signature {signature} a name in cpp_files.py")
    return SIGNATURES[signature]


def enums(description: Description) -> str:
    """Group and Signature."""
    groups = "".join(f"    {camel(group['id'])},\n" for group in description.groups)
    signatures = "".join(f"    {name}, // {signature}\n" for signature, name in SIGNATURES.items())
    return f"""// The groups of exports, and the ways in which exports are called.
#pragma once

#include <cstddef>
#include <cstdint>

namespace exports {{

/// In the order of the header.
enum class Group : std::uint8_t {{
{groups}    Count
}};

enum class Signature : std::uint8_t {{
{signatures}    Count
}};

inline constexpr std::size_t ExportCount = {len(description.exports)};

}} // namespace exports
"""


def names(description: Description) -> str:
    rows = "".join(f"EXPORT({export['name']})\n" for export in description.exports)
    return "// Every export of the library: #define EXPORT(name) and include this.\n" + rows


def table(description: Description) -> str:
    values, rows, metrics = {}, [], []
    for export in description.exports:
        entries = "".join(f"    {special_value(value)},\n" for value in export["values"])
        if entries:
            values.setdefault(entries, export["name"])  # exports with the same values share one list
        rows.append(row(description, export, values.get(entries)))
    value_lists = "".join(
        f"constexpr SpecialValue {name}[] = {{\n{entries}}};\n" for entries, name in values.items()
    )
    for metric_name in dict.fromkeys(e["metric"]["name"] for e in description.exports if e["metric"]):
        for export in description.exports:
            if export["metric"] and export["metric"]["name"] == metric_name:
                metrics.append(metric(export))
    titles = "".join(f"    {string(group['title'])},\n" for group in description.groups)
    ids = "".join(f"    {string(group['id'])},\n" for group in description.groups)
    charts = "".join(f"    {string(title)},\n" for title in description.charts.values())
    return f"""// The table of exports.
#include "exports/description.h"

#include <array>

namespace exports {{
namespace {{

namespace values {{

{value_lists}
}} // namespace values

constexpr auto Rows = std::to_array<Export>({{
{"".join(rows)}}});
static_assert(Rows.size() == ExportCount);

constexpr auto Titles = std::to_array<std::string_view>({{
{titles}}});
static_assert(Titles.size() == static_cast<std::size_t>(Group::Count));

constexpr auto Ids = std::to_array<std::string_view>({{
{ids}}});

constexpr auto Charts = std::to_array<std::string_view>({{
{charts}}});

constexpr auto Metrics = std::to_array<Metric>({{
{"".join(metrics)}}});

}} // namespace

std::span<const Export> AllExports() {{
    return Rows;
}}

std::string_view TitleOf(Group group) {{
    return Titles[static_cast<std::size_t>(group)];
}}

std::string_view IdOf(Group group) {{
    return Ids[static_cast<std::size_t>(group)];
}}

std::span<const std::string_view> ChartTitles() {{
    return Charts;
}}

std::span<const Metric> AllMetrics() {{
    return Metrics;
}}

}} // namespace exports
"""


def special_value(value: dict) -> str:
    special = value.get("special")
    match, text = {
        None: ("Whole" if value["at"] == "whole" else "Element", str(value.get("value"))),
        "zeros": ("Whole", NO_REGISTER_SET),
        "untouched": ("Untouched", ""),
        "error_code": ("ErrorCode", ""),
        "other": ("Other", ""),
    }[special]
    states = [f"State::{camel(state)}" for state in value["states"]]
    possible = " | ".join(f"Bit({state})" for state in states)
    return f"{{Match::{match}, {string(text)}, {states[0]}, {possible}, {string(value['meaning'])}}}"


def row(description: Description, export: dict, value_list) -> str:
    members = [
        f".name = {string(export['name'])}",
        f".group = Group::{camel(export['group'])}",
        f".signature = Signature::{signature_name(export)}",
        f".declaration = {string(c_types.declaration(export))}",
        f".summary = {string(export['summary'])}",
    ]
    members += optional_members(description, export)
    if value_list:
        members.append(f".values = values::{value_list}")
    lines = "".join(f"     {member},\n" for member in members).lstrip()
    return "    {" + lines[:-2] + "},\n"


def optional_members(description: Description, export: dict):
    """What differs from the default of Export."""
    value = export["value"]
    argument = user_argument(export)
    sizes = [each["size"] for each in export["arguments"] if "size" in each]
    if "unit" in value:
        yield f".unit = {string(value['unit'])}"
    conversion = value.get("conversion", {})
    if any(factor in conversion for factor in ("factor", "offset", "divisor")):
        factors = (str(conversion.get(*pair)) for pair in (("factor", 1), ("offset", 0), ("divisor", 1)))
        yield f".conversion = {{{', '.join(factors)}}}"
        yield f".convertedUnit = {string(conversion['unit'])}"
        if "assumed_unit" in conversion:
            yield f".assumedUnit = {string(conversion['assumed_unit'])}"
    if value["kind"] in DISPLAYS:
        yield f".display = Display::{DISPLAYS[value['kind']]}"
    if argument:
        yield f".argument = {string(argument['name'].upper())}"
        yield f".sample = {string(argument['sample'])}"
    if sizes and value["kind"] != "registers":
        size = sizes[0]
        yield f".buffer = {{{size['count']}, {string(size['unit'])}, BufferRule::{camel(size['kind'])}}}"
    if value["kind"] == "list":
        yield f".element = {{{string(value['element'].get('name', ''))}, {value.get('count', 0)}}}"
    if export["session"] in ("needed", "until_cached", "some_codes"):
        yield ".needsSession = true"
    if export["moves"]:
        yield ".moves = true"
    if export["report"] != "called":
        yield f".report = InReport::{camel(export['report'])}"
    telemetry = export["telemetry"]
    if telemetry:
        yield f".chart = {string(description.charts[telemetry['chart']])}"
    if export["info_label"]:
        yield f".infoLabel = {string(export['info_label'])}"


def metric(export: dict) -> str:
    own = export["metric"]
    kind = "Counter" if own.get("type") == "counter" else "Gauge"
    members = [
        str(export["index"]),
        string(own["name"]),
        string(own["help"]),
        f"MetricType::{kind}",
    ]
    if own["label"]:
        members += [string(own["label"]), string(",".join(own.get("label_values", [])))]
    return f"    {{{', '.join(members)}}},\n"


def fault_expectations(description: Description) -> str:
    lists, rows = [], []
    forms = []
    for export in description.exports:
        expected = export["after_failure"]
        form = camel(expected["form"])
        if form not in forms:
            forms.append(form)
        members = [f"AnswerForm::{form}"]
        for member in ("may_succeed_without", "must_notice"):
            names_of = expected.get(member, [])
            name = f"{export['name']}_{camel(member)}"
            if names_of:
                listed = ", ".join(map(string, names_of))
                lists.append(f"inline constexpr std::string_view {name}[] = {{{listed}}};\n")
            members.append("expectation_lists::" + name if names_of else "{}")
        rows.append(f"    {{{', '.join(members)}}}, // {export['name']}\n")
    return f"""// For the fault sweep: what an export may answer after a boundary call has failed, by the export's index.
#pragma once

#include "exports/generated/enums.h"

#include <iterator>
#include <span>
#include <string_view>

namespace exports {{

enum class AnswerForm : std::uint8_t {{ {', '.join(forms)} }};

struct FaultExpectation {{
    AnswerForm form;
    /// The good answer may come although one of these failed; "*" means all.
    std::span<const std::string_view> maySucceedWithout;
    /// The good answer must not come when one of these failed, although it may for most exports.
    std::span<const std::string_view> mustNotice;
}};

namespace expectation_lists {{

{"".join(lists)}
}} // namespace expectation_lists

inline constexpr FaultExpectation FaultExpectations[] = {{
{"".join(rows)}}};
static_assert(std::size(FaultExpectations) == ExportCount);

}} // namespace exports
"""


def observed_wrappers(description: Description) -> str:
    functions = "".join(observed_wrapper(export) for export in description.exports)
    return f"""// The exports of the observed library: each one delimits its call for the observer and calls the export.
#include "observer/export_call.h"

#include "vesk_sondrel.h"

using observer::ExportArgument;
using observer::ExportCall;

// Two exports return a string object of C++ under a plain name, on purpose.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {{
{functions}
}} // extern "C"
"""


def observed_wrapper(export: dict) -> str:
    call = f"{export['name']}({', '.join(each['name'] for each in export['arguments'])})"
    scope = f"{export['index']}, {string(export['name'])}"
    body = ""
    if export["arguments"]:
        arguments = ", ".join(map(observed_argument, export["arguments"]))
        body = f"    const ExportArgument arguments[] = {{{arguments}}};\n"
        scope += ", arguments"
    body += f"    ExportCall scope({scope});\n"
    body += f"    {call};\n" if export["result"]["type"] == "none" else f"    return scope.Returns({call});\n"
    declaration = c_types.declaration(export, f"VeskObserved_{export['name']}", "")
    return f"\nVESK_API {declaration} {{\n{body}}}\n"


def observed_argument(argument: dict) -> str:
    """What is read, and what the buffer of an answer is and how many units of it may be looked at."""
    name = argument["name"]
    size = argument.get("size", {}).get("count", 0)
    of_type = camel(argument["type"])
    if argument["direction"] == "in":
        return f"ExportArgument::In{of_type}({string(name)}, {name}{f', {size}' if size else ''})"
    return f"ExportArgument::Out{of_type}({string(name)}, {name}, {size})"
