#!/usr/bin/env bash
# shot.sh BUILD FILE.png [--dark]: plays the whole scene (stand-in Dock, companion, a Dock app's panel)
# on a display and a session bus of its own and saves a picture of it.
# shot.sh BUILD DIR --story: plays what the README tells and saves its pictures.
set -euo pipefail
COMPANION_BINARY_DIR=${1:?which build folder?}
export COMPANION_BINARY_DIR
shift
# The system's own Python: it has the bindings to the accessibility bus.
exec /usr/bin/python3 -B "$(dirname "${BASH_SOURCE[0]}")/shot.py" "${@:?where to?}"
