#!/usr/bin/env python3
"""What a replay says of a recording that was changed: check_edits.py SONDREL RECORDING

One call removed, or swapped with the next one that differs: a difference at that line. One answer changed: exactly the
readings that depend on it. Cut at any byte, or one byte changed: an exit status, never a crash. The same of a compressed one.
"""
import gzip
import json
import pathlib
import random
import re
import subprocess
import sys
import tempfile


class Case:
    def __init__(self, tool, recording, folder):
        self.tool = tool
        self.lines = pathlib.Path(recording).read_bytes().splitlines(keepends=True)
        self.file = pathlib.Path(folder) / "edited.rec"
        self.parts = sum(line.startswith(b'{"vesk_recording"') for line in self.lines)
        self.faults = []

    def replay(self, data, *options):
        return self.run(data, "replay", *options)

    def run(self, data, *command):
        self.file.write_bytes(data)
        done = subprocess.run([self.tool, *command, "--", self.file], capture_output=True, text=True,
                              encoding="utf-8", timeout=120)
        if done.returncode not in (0, 1, 2):
            self.faults.append(f"the exit status is {done.returncode}: {done.stderr[-300:]}")
        if done.returncode == 2 and len(done.stderr.strip().splitlines()) != 1:
            self.faults.append(f"not one error line: {done.stderr[-300:]}")
        return done

    def lines_said(self, done):
        return [int(number) for number in re.findall(r": line (\d+): ", done.stdout)]

    def part_of(self, name):
        """Number and lines of the first part that calls an export."""
        part = 0
        found = None
        for place, line in enumerate(self.lines):
            part += line.startswith(b'{"vesk_recording"')
            if found is None and b'"name":"' + name.encode() + b'","arguments"' in line:
                found = part
            if found == part:
                yield part, place, json.loads(line)

    def remove_and_swap(self, name):
        rows = list(self.part_of(name))
        number = next(row["export"] for _, _, row in rows if row.get("name") == name)
        part = rows[0][0]
        reporting = ("Event", "RegisterEventSource", "ReportEvent", "DeregisterEventSource")
        calls = [(place, row) for _, place, row in rows
                 if row.get("of") == number and not row["operation"].startswith(reporting)]
        if len(calls) < 10:
            raise SystemExit(f"{name} has only {len(calls)} calls: nothing is checked")
        for (place, row), (next_place, next_row) in zip(calls, calls[1:]):
            if (row["operation"], row["in"]) == (next_row["operation"], next_row["in"]):
                continue  # asked until the EC is ready: once less is no difference
            end = place + 1
            while json.loads(self.lines[end]).get("end") != row["call"]:
                end += 1
            removed = self.lines[:place] + self.lines[place + 1:end] + self.lines[end + 1:]
            self.expect(removed, part, next_place + 1 - 2, f"{name}: line {place + 1} removed")
            swapped = list(self.lines)
            swapped[place], swapped[next_place] = swapped[next_place], swapped[place]
            next_end = next_place + 1
            while json.loads(self.lines[next_end]).get("end") != next_row["call"]:
                next_end += 1
            swapped[end], swapped[next_end] = swapped[next_end], swapped[end]
            self.expect(swapped, part, place + 1, f"{name}: lines {place + 1} and {next_place + 1} swapped")

    def expect(self, lines, part, line, what):
        done = self.replay(b"".join(lines), "--part", str(part), "--calls")
        said = self.lines_said(done)
        if done.returncode != 1 or line not in said:
            self.faults.append(f"{what}: expected a difference at line {line}, not {said} {done.stderr}")

    def change_an_answer(self):
        """A byte that the EC returned for the fans: one reading depends on it."""
        text = b"".join(self.lines)
        before = self.replay(text)
        if before.returncode != 0:
            self.faults.append("the recording itself does not replay: " + before.stdout)
        changed = set()
        rows = list(self.part_of("Thermal_Read_Fan"))
        number = next(row["export"] for _, _, row in rows if row.get("name") == "Thermal_Read_Fan")
        calls = {row["call"] for _, _, row in rows if row.get("of") == number}
        ends = [place for _, place, row in rows if row.get("end") in calls and "out" in row.get("out", {})]
        for place in ends[-8:]:
            row = json.loads(self.lines[place])
            answer = bytearray.fromhex(row["out"]["out"]["$bytes"])
            answer[11] ^= 0x10
            row["out"]["out"]["$bytes"] = answer.hex()
            done = self.replay(b"".join([*self.lines[:place], json.dumps(row).encode() + b"\n",
                                         *self.lines[place + 1:]]))
            changed |= {line.split(":")[0] for line in done.stdout.splitlines()}
        if changed != {"Thermal_Read_Fan"}:
            self.faults.append(f"changed answers for the fans change {changed}")
        return text

    def compress(self, text):
        """Damaged in any place, cut, or too large: one error line."""
        good = gzip.compress(text)
        if self.replay(good).returncode != 0:
            self.faults.append("a compressed recording is not replayed")
        bomb = gzip.compress(text + b" " * (257 << 20))
        for bad in (good[:-1], good[: len(good) // 2], good[:3], good + b"x", good[:-6] + b"123456", bomb):
            if self.replay(bad).returncode != 2:
                self.faults.append(f"{len(bad)} bytes that are no compressed recording are accepted")

    def cut_and_spoil(self, text):
        chance = random.Random(15)
        for _ in range(60):
            self.replay(text[: chance.randrange(len(text))], "--part", "1")
            place = chance.randrange(len(text))
            self.replay(text[:place] + bytes([chance.randrange(256)]) + text[place + 1:], "--part",
                        str(chance.randrange(1, self.parts + 1)))
            # A number that is out of all bounds.
            numbers = [match.span() for match in re.finditer(rb"(?<=[:,])\d+", text)]
            start, end = chance.choice(numbers)
            edited = text[:start] + b"4294967295" + text[end:]
            self.replay(edited, "--part", str(chance.randrange(1, self.parts + 1)))
            self.run(edited, "machine", "from")
        if self.replay(text[:-5]).returncode != 1:
            self.faults.append("a recording without its last bytes is no finding")
        other = text.replace(b'{"vesk_recording":1', b'{"vesk_recording":2', 1)
        done = self.replay(other)
        if done.returncode != 2 or "line 1: " not in done.stderr:
            self.faults.append("a recording of another version is accepted")


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    with tempfile.TemporaryDirectory() as folder:
        case = Case(sys.argv[1], sys.argv[2], folder)
        text = case.change_an_answer()
        case.remove_and_swap("Thermal_Read_Fan")
        case.compress(b"".join(case.lines))
        case.cut_and_spoil(text)
    print("\n".join(case.faults), file=sys.stderr)
    return 1 if case.faults else 0


if __name__ == "__main__":
    sys.exit(main())
