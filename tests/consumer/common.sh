# Taken in by the two builds of the consumer: PREFIX COMPILER STANDARD FOLDER, and how a missing tool is told.

prefix=$1 compiler=$2 standard=$3 folder=$4
project=$(cd "$(dirname "$0")" && pwd)/project

need() {
    command -v "$1" >/dev/null && return
    echo "$1 is not there"
    [ -z "${CI:-}" ] || exit 1
    exit 77
}

# The line end is the platform's; under an emulator the name ends in ".exe".
run_consumer() {
    local output
    output=$(cd "$folder" && LD_LIBRARY_PATH=$(dirname "$(find "$prefix" -name 'libveldrin.*' | head -n 1)") \
        WINEPATH="Z:$prefix/bin;${WINEPATH:-}" ${EMULATOR:-} ./consumer${EMULATOR:+.exe} | tr -d '\r')
    [ "$output" = "3 files copied" ] || { echo "the consumer printed: $output"; exit 1; }
}

need "$compiler"
rm -rf "$folder"
mkdir -p "$folder"
