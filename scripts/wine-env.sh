# Sourced by the other scripts: a private virtual display and a Wine prefix in which Keystride and its tests run.

export WINEARCH=win64
export WINEDEBUG="${WINEDEBUG--all}"
# No browser engine, no .NET and no desktop menu entries: nothing here needs them and they make a prefix slow.
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="

# File names outside ASCII need a UTF-8 locale, and the tests one ANSI code page everywhere (this one gives 1252).
export LC_ALL=C.UTF-8

KEYSTRIDE_DESKTOP_SIZE=1280x1024
KEYSTRIDE_XVFB=

# Is there a display that can be drawn on?
keystride_display_usable() {
    [ -n "${DISPLAY:-}" ] && timeout 10 import -silent -window root -crop 1x1+0+0 null: >/dev/null 2>&1
}

# Starts a virtual display of our own and sets DISPLAY to it.
keystride_start_display() {
    local fifo number
    fifo=$(mktemp -u)
    mkfifo -m 600 "$fifo" || return 1
    # It must not outlive a script that is killed without a chance to tidy up.
    setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 "${KEYSTRIDE_DESKTOP_SIZE}x24" -nolisten tcp -noreset -s 0 \
        3>"$fifo" </dev/null >/dev/null 2>&1 &
    KEYSTRIDE_XVFB=$!
    read -r -t 30 number <"$fifo"
    rm -f "$fifo"
    if [ -z "$number" ]; then
        echo "The virtual display does not start." >&2
        return 1
    fi
    export DISPLAY=":$number"
    unset XAUTHORITY
}

# keystride_use_prefix FOLDER desktop|plain: makes the prefix if it is not there yet and works in it from now on.
# With `desktop` every program runs in a virtual desktop with a taskbar, with `plain` straight on the display.
keystride_use_prefix() {
    export WINEPREFIX=$1
    local made="$WINEPREFIX/keystride.made" applied="$WINEPREFIX/keystride.reg" new="$WINEPREFIX/settings.reg"
    local desktop='"shell"' settings folder
    [ "$2" = desktop ] || desktop='-'
    # Only a desktop of the name `shell` has a taskbar.
    settings="Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]
\"Desktop\"=$desktop

[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]
\"shell\"=\"$KEYSTRIDE_DESKTOP_SIZE\"

[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]
\"ShowCrashDialog\"=dword:00000000

[HKEY_CURRENT_USER\\Control Panel\\Desktop]
\"ScreenSaveActive\"=\"0\"
"
    if [ ! -f "$made" ]; then
        mkdir -p "$WINEPREFIX"
        if ! timeout 180 wineboot -i </dev/null >/dev/null 2>&1; then
            echo "wineboot fails in $WINEPREFIX" >&2
            return 1
        fi
        # Wine links the user's own folders into a prefix: the program's files would land in that user's home.
        for folder in "$WINEPREFIX"/drive_c/users/*/*; do
            if [ -L "$folder" ]; then
                rm "$folder" && mkdir "$folder"
            fi
        done
        rm -f "$applied"
        touch "$made"
    fi
    printf '%s' "$settings" >"$new"
    if cmp -s "$new" "$applied"; then
        rm "$new"
        return 0
    fi
    if ! timeout 60 wine regedit /S "Z:$new" </dev/null >/dev/null 2>&1; then
        echo "The registry of $WINEPREFIX cannot be written." >&2
        return 1
    fi
    # The settings hold from the next start of the desktop on.
    keystride_stop_wine
    mv "$new" "$applied"
}

# Wine's server and desktop live on after the program that started them and would keep its output open:
# start them apart from it, to stay for a minute without a program. One that looks for the taskbar first must find it, too.
keystride_start_wine() {
    timeout 60 wineserver -p60 </dev/null >/dev/null 2>&1
    timeout 60 wine rundll32 user32.dll,GetDesktopWindow </dev/null >/dev/null 2>&1
}

# Ends everything that runs in the prefix.
keystride_stop_wine() {
    timeout 30 wineserver -k >/dev/null 2>&1
    timeout 30 wineserver -w >/dev/null 2>&1
    return 0
}

# Ends the prefix and the display; for a trap on EXIT.
keystride_stop() {
    [ -z "${WINEPREFIX:-}" ] || keystride_stop_wine
    if [ -n "$KEYSTRIDE_XVFB" ]; then
        kill "$KEYSTRIDE_XVFB" 2>/dev/null
        wait "$KEYSTRIDE_XVFB" 2>/dev/null
        KEYSTRIDE_XVFB=
    fi
    return 0
}
