# What the tools share; sourced by them. Leaves the shell in the project folder; $caller is where it
# was before.
set -euo pipefail
caller=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")/.."
project=$PWD

# Runs a command quietly and says in one line what was done and how long it took. When it fails,
# shows what it printed and ends the script.
step() { # description, command...
    local description=$1 start=$SECONDS log status
    shift
    log=$(mktemp build/step.XXXXXX.log)
    # Not in a condition, where bash goes on after a failure inside a function.
    set +e
    (set -e; "$@") >"$log" 2>&1 </dev/null
    status=$?
    set -e
    if [ $status != 0 ]; then
        cat "$log"
        echo "failed: $description ($((SECONDS - start)) s)"
        rm "$log"
        exit 1
    fi
    echo "$description ($((SECONDS - start)) s)"
    rm "$log"
}

configure_and_build() { # preset, build arguments...
    cmake --preset "$1" && cmake --build --preset "$@"
}

# The name of a file as a Windows program under Wine sees it.
windows_path() {
    local path
    path=$(realpath -m "$1")
    echo "Z:${path//\//\\}"
}
