#!/usr/bin/env python3
"""A fleet of all built-in machines: each writes its metrics for a node exporter, one Prometheus scrapes them all and is
asked across them. The metrics of each machine and the alerts are checked by promtool.

    tests/fleet/check_fleet.py TOOL
"""

import json
import re
import socket
import subprocess
import sys
import tempfile
import time
import urllib.error
import urllib.parse
import urllib.request
from contextlib import ExitStack
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
RULES = ROOT / "packaging/prometheus/sondrel.rules.yml"
LONGEST_START = 60  # seconds
NOISE = re.compile(r"[\x00-\x09\x0b-\x1f\x7f]|\.[0-9]{9}")


def run(*line: str | Path, text: str | None = None) -> str:
    done = subprocess.run(line, input=text, capture_output=True, text=True, check=False)
    if done.returncode != 0 or (text is not None and done.stderr + done.stdout):
        sys.exit(f"{' '.join(map(str, line))}\n{done.stdout}{done.stderr}")
    return done.stdout


def write_metrics(tool: str, machine: str, directory: Path) -> Path:
    file = directory / machine / "sondrel.prom"
    file.parent.mkdir()
    run(tool, "--machine", machine, "--store", ":memory:", "metrics", "--output", file)
    text = file.read_text(encoding="utf-8")
    run("promtool", "check", "metrics", text=text)
    if found := NOISE.search(text):
        sys.exit(f"{machine}: a control byte or float noise: {found[0]!r}")
    return file


def free_ports(count: int) -> list[int]:
    with ExitStack() as stack:
        sockets = [stack.enter_context(socket.create_server(("127.0.0.1", 0))) for _ in range(count)]
        return [each.getsockname()[1] for each in sockets]


def start(stack: ExitStack, log: Path, *line: str | Path) -> None:
    process = subprocess.Popen(line, stdout=subprocess.DEVNULL, stderr=stack.enter_context(log.open("w")))
    stack.callback(process.wait)
    stack.callback(process.terminate)


def value_of(port: int, query: str) -> list[dict]:
    address = f"http://127.0.0.1:{port}/api/v1/query?{urllib.parse.urlencode({'query': query})}"
    try:
        with urllib.request.urlopen(address, timeout=10) as answer:
            return json.load(answer)["data"]["result"]
    except (urllib.error.URLError, ConnectionError):
        return []  # not yet started


def number(port: int, query: str) -> float | None:
    rows = value_of(port, query)
    return float(rows[0]["value"][1]) if rows else None


def main(tool: str) -> None:
    run("promtool", "test", "rules", ROOT / "tests/fleet/rules_test.yml")
    machines = [line.split()[0] for line in run(tool, "machine", "list").splitlines()]
    with ExitStack() as stack:
        directory = Path(stack.enter_context(tempfile.TemporaryDirectory()))
        server, *ports = free_ports(1 + len(machines))
        targets = []
        for machine, port in zip(machines, ports):
            file = write_metrics(tool, machine, directory)
            start(stack, file.with_suffix(".log"), "prometheus-node-exporter", "--collector.disable-defaults",
                  "--collector.textfile", f"--collector.textfile.directory={file.parent}",
                  f"--web.listen-address=127.0.0.1:{port}")
            targets.append({"targets": [f"127.0.0.1:{port}"], "labels": {"instance": machine}})
        config = {
            "global": {"scrape_interval": "1s", "evaluation_interval": "1s"},
            "rule_files": [str(RULES)],
            "scrape_configs": [{"job_name": "sondrel", "static_configs": targets}],
        }
        (directory / "prometheus.yml").write_text(json.dumps(config), encoding="utf-8")  # JSON is YAML
        start(stack, directory / "prometheus.log", "prometheus", f"--config.file={directory}/prometheus.yml",
              f"--storage.tsdb.path={directory}/data", f"--web.listen-address=127.0.0.1:{server}")

        end = time.monotonic() + LONGEST_START
        while number(server, "count(sondrel_build_info)") != len(machines):
            if time.monotonic() > end:
                sys.exit("not every machine was scraped\n" + (directory / "prometheus.log").read_text())
            time.sleep(0.2)

        expected = {
            'sondrel_temperature_celsius{instance="gl", sensor="cpu"}': 58,
            'max by (instance) (sondrel_fan_speed_rpm{instance="default"})': 3071,
            'count(sondrel_machine_info{product="Kelvane 16 GL"})': 1,
            # A label of the machine next to its readings.
            'sondrel_battery_health_ratio * on (instance) group_left (serial_number) '
            'sondrel_machine_info{serial_number="VSK4K0C7Q213"}': 0.9,
            f'count(time() - node_textfile_mtime_seconds{{file=~".*sondrel.prom"}} < {LONGEST_START * 10})':
                len(machines),
            "sum(node_textfile_scrape_error)": 0,
        }
        for query, right in expected.items():
            if (found := number(server, query)) != right:
                sys.exit(f"{query}: {found}, expected {right}")


if __name__ == "__main__":
    main(sys.argv[1])
