# Read by the scripts beside it: they all work from the root of the tree, whoever starts them.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Paths below the tree count as relative, so that another copy of it finds the same objects.
export CCACHE_BASEDIR=$PWD

say() { printf '== %s\n' "$*"; }

fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# step TITLE COMMAND...: runs the command and says how long it took; a failure ends the script.
step() {
    local title=$1 start=$SECONDS
    shift
    current_step=$title
    say "$title"
    "$@"
    current_step=
    say "$title: done in $((SECONDS - start)) s"
}

current_step=
trap 'status=$?; [[ $status == 0 || -z $current_step ]] ||
    printf "%s: failed at \"%s\" (exit %d)\n" "${0##*/}" "$current_step" "$status" >&2' EXIT
