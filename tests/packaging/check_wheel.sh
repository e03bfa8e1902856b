#!/bin/sh
# Two wheels of one tree are the same file. That of the build installs into an empty virtual environment without network, and works
# there, with its types.
#
#   tests/packaging/check_wheel.sh WHEEL_DIRECTORY LIBRARY
set -eu

if [ $# -ne 2 ]; then
    echo "usage: check_wheel.sh WHEEL_DIRECTORY LIBRARY" >&2
    exit 64
fi
directory=$1
library=$2
root=$(cd "$(dirname "$0")/../.." && pwd)
unset PYTHONPATH PYTHONHOME

work=$(mktemp -d "${TMPDIR:-/tmp}/a wheel elsewhere.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' HUP INT TERM

wheel=$(echo "$directory"/*.whl)
for again in 1 2; do
    "$root/packaging/build_wheel.py" "$work/$again" >/dev/null 2>"$work/log" || { cat "$work/log" >&2; exit 1; }
    sleep 1
done
cmp "$work"/1/*.whl "$work"/2/*.whl
[ -f "$work/1/$(basename "$wheel")" ]

/usr/bin/python3 -m venv "$work/empty"
"$work/empty/bin/pip" install --quiet --disable-pip-version-check --no-index "$wheel"
cd "$work"
"$work/empty/bin/python" - "$library" <<'PYTHON'
import pathlib, sys
import vesk_sondrel
from vesk_sondrel import Machine, Session

package = pathlib.Path(vesk_sondrel.__file__).parent
assert "site-packages" in package.parts, package
assert (package / "py.typed").exists()
with Machine("gl", library=sys.argv[1]), Session(sys.argv[1]) as session:
    assert session.identity.firmware_revision == "GL"
PYTHON
"$work/empty/bin/python" "$root/examples/python/report_json.py" "$library" --machine default >"$work/report.json"
grep -q '"value": 53' "$work/report.json"
[ "$("$work/empty/bin/python" -c 'import vesk_sondrel; print(vesk_sondrel.__version__)')" = \
    "$("$work/empty/bin/pip" --disable-pip-version-check show vesk-sondrel | sed -n 's/^Version: //p')" ]
