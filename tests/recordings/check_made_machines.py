#!/usr/bin/env python3
"""What a recording shows is a machine again: recorded, made into a profile, recorded again, with the same answers.

  check_made_machines.py SONDREL RECORDING_DIRECTORY PROFILE_DIRECTORY...
"""

import json
import pathlib
import subprocess
import sys
import tempfile

# The machines, with what a profile has no place for: a reading that is missing here has to answer as it did.
MACHINES = {
    "ab": set(),
    "awkward-battery": set(),
    "awkward-sensors": set(),
    "awkward-wmi": set(),
    "bare-firmware": set(),
    "cf": set(),
    "default": {"AppList_OpenWindows"},
    "kl-chip-1": set(),
    "no-identity": set(),
    "radios-two": set(),
    "unknown-code": set(),
    "wifi-he": set(),
    "wild-event-store": {"GPNV_Get_ManufacturedTime"},
    "awkward-applications": {"AppList_OpenWindows", "App_Get_Win32App", "GetApplist_UWP", "GetApplist_x64"},
    "awkward-services": {"GPNV_Get_ManufacturedTime"},
    "locked-down": set(),
}
REDACTED = {"default", "awkward-applications", "awkward-battery", "awkward-wmi", "radios-two"}


def answers(recording):
    """The results and buffers of each export, in the order of its calls."""
    found, names = {}, {}
    for line in recording.read_text(encoding="utf-8").splitlines():
        fields = json.loads(line)
        if "vesk_recording" in fields:
            names = {}
        elif "export" in fields:
            names[fields["export"]] = fields["name"]
        elif "return" in fields:
            answer = fields.get("result"), fields.get("buffers")
            found.setdefault(names[fields["return"]], []).append(answer)
    return found


def check(sondrel, recording, expected, work):
    """The differences of the machine that is made of this recording."""
    stem = f"made-{recording.parent.name}-{recording.stem}"
    profile, again = work / f"{stem}.json", work / f"{stem}.rec"
    made = run(sondrel, "machine", "from", recording, "-o", profile)
    left_out = {line.split(": ")[1] for line in made.stderr.splitlines() if line.startswith("left out: ")}
    if left_out != expected:
        return [f"it leaves out {sorted(left_out)}"]
    run(sondrel, "machine", "check", profile)
    before = answers(recording)
    readings = [export for export in before if export not in ("InitializeSondrel", "ShutdownSondrel")]
    run(sondrel, "--machine", profile, "--store", ":memory:", "record", "--no-redact", "-o", again, *readings)
    after = answers(again)
    return [
        f"{export}: {before[export][0]} became {after.get(export)}"
        for export in readings
        if export not in left_out and before[export][0] != after.get(export, [None])[0]
    ]


def run(sondrel, *arguments):
    done = subprocess.run([sondrel, *arguments], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"sondrel {' '.join(map(str, arguments))}: {done.stdout}{done.stderr}")
    return done


def main():
    sondrel, recordings, *directories = sys.argv[1:]
    cases = [(file, set()) for file in pathlib.Path(recordings).glob("*.rec")]
    files = [file for directory in directories for file in pathlib.Path(directory).glob("*.json")]
    profiles = [file for file in files if file.stem in MACHINES]
    wrong = []
    with tempfile.TemporaryDirectory() as directory:
        work = pathlib.Path(directory)
        for profile in profiles:
            recording = work / f"{profile.stem}.rec"
            run(sondrel, "--machine", profile, "--store", ":memory:", "record", "--no-redact", "-o", recording)
            cases.append((recording, MACHINES[profile.stem]))
            if len(answers(recording)) < 107:
                wrong.append(f"{profile.stem}: only {len(answers(recording))} exports were recorded")
            if profile.stem in REDACTED:
                cases.append((work / f"{profile.stem}.redacted.rec", MACHINES[profile.stem]))
                run(sondrel, "redact", recording, "-o", cases[-1][0])
        for recording, expected in cases:
            wrong += [f"{recording}: {problem}" for problem in check(sondrel, recording, expected, work)]
    print(*wrong, f"{len(cases)} machines made", sep="\n")
    return 1 if wrong or len(profiles) != len(MACHINES) or len(cases) < len(MACHINES) + 10 else 0


if __name__ == "__main__":
    sys.exit(main())
