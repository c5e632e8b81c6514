# Sourced by the other scripts: plays a session of a second program with Keystride and takes the screenshots it asks for.

# keystride_screenshot FILE [AREA]: what is painted reaches the display a moment later, so it takes pictures until one is like
# the one before; a blinking caret must not keep it for ever.
keystride_screenshot() {
    local before="$1.before.png" attempt
    for attempt in 1 2 3 4 5 6 7 8; do
        import -silent -window root ${2:+-crop "$2" +repage} "$1" || return 1
        if [ "$attempt" -gt 1 ] && compare -metric AE "$before" "$1" null: >/dev/null 2>&1; then
            break
        fi
        mv "$1" "$before"
    done
    [ -f "$1" ] || mv "$before" "$1"
    rm -f "$before"
}

# keystride_play PLAYER FOLDER: runs build/release/PLAYER.exe on the display and in the prefix that are set, prints what it
# says, and keeps its screenshots in FOLDER. The player says what it does, line by line; after "@screenshot NAME" (all
# of the display) and "@screenshot NAME WIDTHxHEIGHT+LEFT+TOP" it waits for an answer.
keystride_play() {
    local folder=$2 errors line= piece name area status player said answer
    errors=$(mktemp)
    coproc PLAYER { exec timeout 180 wine "build/release/$1.exe" "Z:$PWD/build/release/keystride.exe" 2>"$errors"; }
    player=$PLAYER_PID
    exec {said}<&"${PLAYER[0]}" {answer}>&"${PLAYER[1]}"
    while true; do
        if IFS= read -r -t 1 piece <&"$said"; then
            line=$line$piece
            line=${line%$'\r'}
            case "$line" in
                "@screenshot "*)
                    read -r _ name area <<<"$line"
                    # The name becomes a file's name: nothing but its harmless characters.
                    name=${name//[^A-Za-z0-9_-]/_}
                    keystride_screenshot "$folder/$name.png" "$area" && echo "saved $folder/$name.png"
                    echo ok >&"$answer"
                    ;;
                @*) ;;
                *) printf '%s\n' "$line" ;;
            esac
            line=
        elif [ $? -le 128 ]; then
            break
        else
            # A program left open keeps the pipe open after its player has ended.
            line=$line$piece
            kill -0 "$player" 2>/dev/null || break
        fi
    done
    wait "$player"
    status=$?
    if [ "$status" -ne 0 ]; then
        cat "$errors" >&2
        echo "The session failed (exit status $status)." >&2
    fi
    rm -f "$errors"
    return "$status"
}
