"""The comparison of the public header with the description: a planted difference is reported, in one line."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "exports"))

from check_header import Header, differences
from description import load

DESCRIPTION = load()
TEXT = (ROOT / "include/vesk_sondrel.h").read_text(encoding="utf-8")


def declaration(name: str) -> str:
    """The line of the header that declares the export."""
    return next(line for line in TEXT.splitlines() if f" {name}(" in line and line.startswith("VESK_API"))


def comment(name: str) -> str:
    """The comment above the declaration."""
    end = TEXT.index(declaration(name))
    return TEXT[TEXT.rindex("/**", 0, end) : end]


def changed_comment(name: str, old: str, new: str) -> str:
    assert old in comment(name), f"{old} is not in the comment of {name}"
    return TEXT.replace(comment(name) + declaration(name), comment(name).replace(old, new) + declaration(name))


# The header with one difference, and the line that reports it.
PLANTED = [
    (TEXT.replace("wmiadd(uint32_t", "wmi_add(uint32_t"), "export wmiadd: the header does not have it"),
    (TEXT.replace("wmiadd(uint32_t", "wmi_add(uint32_t"), "export wmi_add: the description does not have it"),
    (TEXT.replace("wmiadd(uint32_t", "wmiadd(int32_t"), "wmiadd: declared as uint32_t wmiadd(int32_t value), described"),
    (TEXT.replace(declaration("GetRefCount"), ""), "export GetRefCount: the header does not have it"),
    (TEXT.replace("@defgroup wifi ", "@defgroup wireless "), "RF_WiFiRssi: it is in the group wireless, not in wifi"),
    (TEXT.replace("GPNV_Get_RandomUUID(", "GPNV_Get_X(").replace("GPNV_Get_ActivatedTime(", "GPNV_Get_RandomUUID(")
     .replace("GPNV_Get_X(", "GPNV_Get_ActivatedTime("), "export GPNV_Get_ActivatedTime: GPNV_Get_RandomUUID is expected"),
    (changed_comment("WMIGetHDDTemp", "1200", "1100"), "WMIGetHDDTemp: out: 1200 characters are described"),
    (changed_comment("RF_AP_MAC", "bytes", "characters"), "RF_AP_MAC: out: the comment does not give the size in bytes"),
    (changed_comment("System_Read_LocalTime", "exactly ", ""), "System_Read_LocalTime: out: the size is described as exact"),
    (changed_comment("GPNV_Get_RandomUUID", "16", "32"), "GPNV_Get_RandomUUID: out: 16 bytes are described"),
    (changed_comment("GetUWPVersion", " out: ", " size: "), "GetUWPVersion: the comment does not state the size of out"),
    (changed_comment("Power_Read_ACDCMode", "Failure: 255", "Failure: 256"), "the comment states 256 after Failure"),
    (changed_comment("Power_Read_ACDCMode", "255", "256"), "does not state the failure value 255"),
    (changed_comment("WMIGetSystemChassisTypes", '"unknown"', '"other"'), "does not state the failure value 'unknown'"),
    (changed_comment("System_Read_VolumeLevel", "Blocks:", "Takes:"), "the comment does not state: Blocks"),
    (changed_comment("System_Read_VolumeLevel", "Session: not", "Session:"), "described is: not needed"),
]


class HeaderTest(unittest.TestCase):
    def test_agrees_with_the_description(self):
        self.assertEqual(list(differences(DESCRIPTION, Header(TEXT))), [])

    def test_reports_each_planted_difference(self):
        for text, expected in PLANTED:
            with self.subTest(expected):
                self.assertNotEqual(text, TEXT)
                found = list(differences(DESCRIPTION, Header(text)))
                self.assertTrue(any(expected in line for line in found), found)
                self.assertTrue(all("\n" not in line for line in found))


if __name__ == "__main__":
    unittest.main()
