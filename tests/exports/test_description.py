"""The validator of exports.json: each kind of error is reported in one line that names its place."""

import json
import sys
import tempfile
import unittest
from pathlib import Path

EXPORTS = Path(__file__).resolve().parents[2] / "exports"
sys.path.insert(0, str(EXPORTS))

import cpp_files
import text_files
from description import DescriptionError, load

TEXT = (EXPORTS / "exports.json").read_text(encoding="utf-8")


def find(document: dict, name: str) -> dict:
    return next(e for group in document["groups"] for e in group["exports"] if e["name"] == name)


# What is changed in the description, by a statement on the export or the document, and the error.
FAULTS = [
    ("WMIGetSN", "e['name'] = 'WMIGetSSDModel'", "export WMIGetSSDModel is there twice"),
    ("WMIGetSN", "e['short'] = 'disks'", "inventory: short disks is there twice"),
    ("WMIGetSN", "e['value']['kind'] = 'string'", 'WMIGetSN/value/kind: "string" is none of none, status'),
    ("WMIGetSN", "del e['value']", "value is missing"),
    ("WMIGetSN", "e['colour'] = 'red'", "there is no member colour"),
    ("WMIGetSN", "e['moves'] = 1", "/moves: 1 is not of type boolean"),
    ("WMIGetSN", "e['summary'] = 'A number.'", "no full stop and no blank at the end"),
    ("WMIGetSN", "e['values'] = ['wmi_words']", "value_sets has no wmi_words"),
    ("WMIGetSN", "e['sources'] = ['dreams']", "sources has no dreams"),
    ("WMIGetSN", "e['arguments'] = ['initCom']", "nothing carries a value of kind list"),
    ("WMIGetSN", "e['values'] = [{'value': '', 'states': ['gone'], 'meaning': 'x'}]", "states has no gone"),
    ("WMIGetSN", "e['values'] = [{'value': 0, 'states': ['ok'], 'meaning': 'x'}]", "0 is not of the type of the answer"),
    ("RF_WiFiRssi", "e['values'] = [{'value': 1 << 31, 'states': ['ok'], 'meaning': 'x'}]", "does not fit the answer"),
    ("RF_AP_MAC", "e['arguments'][0]['size']['count'] = 12", '"error_string" does not fit the buffer out'),
    ("RF_AP_MAC", "del e['arguments'][0]['size']", "the size of out is missing"),
    ("RF_AP_MAC", "e['arguments'][0]['size']['unit'] = 'characters'", "wide text is sized in characters"),
    ("GetApplist_x64", "del e['arguments'][0]['size']['base']", "belong to a size that grows"),
    ("wmiadd", "del e['arguments'][0]['sample']", "the sample of value is missing"),
    ("wmiadd", "e['arguments'][0]['allowed']['max'] = 1 << 32", "the allowed values do not fit its type"),
    ("wmiadd", "e['com'] = {'apartment': 'multithreaded', 'entered_by': 'argument'}", "com is entered by the argument"),
    ("WMISetAppPath", "e['report'] = 'called'", "a report skips what changes"),
    ("GetRefCount", "e['uses'] = {}", "uses the resource session shared"),
    ("GetRefCount", "e['metric']['name'] = 'sondrel_references_total'", "a counter ends in _total"),
    ("WMIGetSN", "e['metric'] = {'name': 'sondrel_x', 'help': 'X.'}", "a list of text is no metric"),
    ("Thermal_Read_CpuDptf_PowerLimit2", "e['metric']['label_values'] = ['1']", "need different label_values"),
    ("CPU_ReadCpuId", "e['values'][0]['value'] = 1", "has either value or special"),
    ("GetInfVersion", "e['arguments'][0]['size']['count'] = 0", "/count: 0 is less than 1"),
    ("WMIGetHDDSize", "e['value']['unit'] = 'octets'", "units has no octets"),
    ("Power_Read_ACDCMode", "del e['values'][0]['name']", "the ordinary values of a choice have a name"),
    ("Power_Read_ACDCMode", "e['values'][1]['name'] = 'battery'", "name battery is there twice"),
    ("Power_Read_ACDCMode", "e['values'][2]['name'] = 'unknown'", "a value with a name has the state ok"),
    ("WMIGetHDDInfo", "del e['value']['element']['name']", "their name is the record's"),
    ("GetInfVersion", "d['charts']['noise'] = 'Noise'", "/charts/noise: nothing refers to it"),
    ("GetInfVersion", "d['groups'][1]['id'] = 'session'", "group session is there twice"),
]


class DescriptionTest(unittest.TestCase):
    def errors_of(self, text: str) -> str:
        with tempfile.TemporaryDirectory() as directory:
            file = Path(directory) / "exports.json"
            file.write_text(text, encoding="utf-8")
            with self.assertRaises(DescriptionError) as raised:
                load(file)
            return str(raised.exception)

    def test_reports_each_fault(self):
        for name, change, expected in FAULTS:
            with self.subTest(name, change=change):
                document = json.loads(TEXT)
                exec(change, {"e": find(document, name), "d": document})
                self.assertIn(expected, self.errors_of(json.dumps(document)))

    def test_reports_what_is_no_json_and_a_member_given_twice(self):
        self.assertIn("exports.json: ", self.errors_of(TEXT[:1000]))
        self.assertIn("the member states is given twice", self.errors_of(TEXT.replace('"sources"', '"states"', 1)))

    def test_generates_the_same_from_the_same(self):
        for generate in (cpp_files.table, cpp_files.fault_expectations, text_files.failure_table):
            self.assertEqual(generate(load()), generate(load()))


if __name__ == "__main__":
    unittest.main()
