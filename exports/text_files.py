"""The generated files that are no C++: linker inputs and the failure table of the host page."""

from __future__ import annotations

from description import Description

NOTICE = "Generated from exports/exports.json by exports/generate.py"


def definition(description: Description) -> str:
    """The .def file of the library."""
    return f"""; {NOTICE}: every name the library exports, and nothing else.
;
; Toolchains that cannot use libVeskSondrel64.dll.a make their import library from it:
;   lib /def:VeskSondrel64.def /machine:x64 /out:VeskSondrel64.lib
;   llvm-dlltool -m i386:x86-64 -d VeskSondrel64.def -l VeskSondrel64.lib
;   x86_64-w64-mingw32-dlltool -d VeskSondrel64.def -l libVeskSondrel64.dll.a
LIBRARY {description.library}.dll
EXPORTS
{definition_rows(description, "    {name}")}"""


def observed_definition(description: Description) -> str:
    return f"""; {NOTICE}: the observed library exports its wrappers under the exports' names.
LIBRARY {description.library}.dll
EXPORTS
{definition_rows(description, "    {name} = VeskObserved_{name}")}"""


def definition_rows(description: Description, row: str) -> str:
    lines = []
    for group in description.groups:
        lines.append(f"    ; {group['title']}")
        lines += [row.format(name=export["name"]) for export in description.of_group(group["id"])]
    return "\n".join(lines) + "\n"


def version_script(description: Description) -> str:
    """What the ELF library exports."""
    rows = "".join(f"        {export['name']};\n" for export in description.exports)
    return f"/* {NOTICE}. */\n{{\n    global:\n{rows}    local:\n        *;\n}};\n"


def observed_symbols(description: Description) -> str:
    """For objcopy --redefine-syms on the core's objects and the wrappers': ELF linkers cannot export a function under
    another name, so the wrappers take the exports' names."""
    rows = "".join(
        f"{export['name']} VeskCore_{export['name']}\nVeskObserved_{export['name']} {export['name']}\n"
        for export in description.exports
    )
    return f"# {NOTICE}.\n{rows}"


def failure_table(description: Description) -> str:
    """The answers that are no value, or need not be one, with the exports that give them."""
    rows = {}
    for export in description.exports:
        for value in export["values"]:
            if set(value["states"]) != {"ok"}:
                or_value = "; or an ordinary value" if value["states"][-1] == "ok" else ""
                row = (value["meaning"] + or_value, [])
                rows.setdefault(answer_text(value), {}).setdefault(*row).append(export)
    lines = ["| answer | from | it means |", "|---|---|---|"]
    for answer, meanings in rows.items():
        for meaning, exports in meanings.items():
            lines.append(f"| {answer} | {exporters(description, exports)} | {meaning} |")
    return "\n".join(lines) + "\n"


def answer_text(value: dict) -> str:
    special = value.get("special")
    if special:
        return {
            "untouched": "buffer unchanged",
            "zeros": "four zeros",
            "error_code": "result not 0",
            "other": "result not 0",
        }[special]
    plain = value["value"]
    if value["at"] == "element":
        return f"{plain} in a list"
    texts = {
        2147483647: "0x7FFFFFFF, `VESK_READ_FAILED`",
        -1000: "-1000, `VESK_RADIO_NOT_READ`",
        "": "empty string",
    }
    return texts.get(plain, str(plain) if isinstance(plain, int) else f"`{plain}`")


def exporters(description: Description, exports: list) -> str:
    """By group where most exports of a group that answer in the same way are meant, else by name."""
    listed = []
    meant = {export["name"] for export in exports}
    for group in description.groups:
        own = description.of_group(group["id"])
        among = [export for export in own if export["name"] in meant]
        for kind in dict.fromkeys(map(answer_kind, among)):
            alike = [export for export in own if answer_kind(export) == kind]
            others = [export for export in alike if export["name"] not in meant]
            here = [export for export in among if answer_kind(export) == kind]
            if len(here) < 4 or len(others) > 4:
                listed += [f"`{export['name']}`" for export in here]
                continue
            which = "" if len(alike) == len(own) else kind + "s of "
            but = " except " + ", ".join(f"`{each['name']}`" for each in others) if others else ""
            listed.append(f'{which}"{group["title"]}"{but}')
    return ", ".join(listed)


def answer_kind(export: dict) -> str:
    if export["result"]["role"] == "value" and export["result"]["type"] != "string":
        return "number"
    return "string"
