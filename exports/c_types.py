"""The exports' types in C, as the public header spells them."""

from __future__ import annotations

VALUES = {
    "none": "void",
    "uint8": "uint8_t",
    "int32": "int32_t",
    "uint32": "uint32_t",
    "float": "float",
    "double": "double",
    "string": "std::string",
}
POINTEES = {"bytes": "uint8_t", "text": "char", "wide_text": "VeskChar16"}


def of_argument(argument: dict) -> str:
    if argument["type"] in POINTEES:
        constant = "const " if argument["direction"] == "in" else ""
        return f"{constant}{POINTEES[argument['type']]}*"
    return VALUES[argument["type"]] + ("*" if argument["direction"] == "out" else "")


def of_result(export: dict) -> str:
    return VALUES[export["result"]["type"]]


def signature(export: dict) -> str:
    """The type of the function: "void(VeskChar16*, uint8_t)"."""
    return f"{of_result(export)}({', '.join(map(of_argument, export['arguments']))})"


def declaration(export: dict, name: str = "", without_arguments: str = "void") -> str:
    """ "void WMIGetSN(VeskChar16* out, uint8_t initCom)" """
    arguments = ", ".join(f"{of_argument(each)} {each['name']}" for each in export["arguments"])
    return f"{of_result(export)} {name or export['name']}({arguments or without_arguments})"
