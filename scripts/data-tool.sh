# Sourced by make-data and check-data: builds the tool and runs it on the repository's data folder, or on another one.

# keystride_data_tool COMMAND [FOLDER]
keystride_data_tool() {
    local command=$1 folder=${2:-$root/data} log="$root/build/data-tool.log"
    mkdir -p "$root/build"
    if ! flock "$root/build/data-tool.lock" bash -c \
        'cd "$1" && cmake --preset release && cmake --build --preset release --target data_tool' - "$root" >"$log" 2>&1; then
        cat "$log" >&2
        return 2
    fi
    # What the program reads the values with needs Wine; the tool's own lines end as Windows' do.
    "$root/scripts/wine-run" "$root/build/release/data_tool.exe" "$command" "Z:$(realpath "$folder")" | tr -d '\r'
    return "${PIPESTATUS[0]}"
}
