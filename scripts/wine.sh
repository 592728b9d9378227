# shellcheck shell=bash
# Functions to run the project's Windows programs under Wine; to be sourced by bash.
#
#   . scripts/wine.sh
#   wine_make_template build/wine/template          # once, some ten seconds; again only when its recipe changes
#   screen_start 1920x1080x24                       # a virtual screen, sets DISPLAY
#   wine_new_prefix build/wine/template build/wine/mine   # a fresh prefix of its own, 0.1 s
#   wine_use build/wine/mine
#   "$WINE" build/windows/bin/pixora_tests.exe
#   wine_stop; screen_stop
#
# A user's own Wine prefix is never used: every function takes the place of its prefix.

# Debian's launcher would print a hint about 32-bit Wine, which this project does not need.
WINE=/usr/lib/wine/wine64
[ -x "$WINE" ] || WINE=wine64
command -v "$WINE" >/dev/null || WINE=wine
SCREEN_PIDS=()

# The registry of every prefix. "Managed"="N" lets windows take their positions and sizes exactly and at once;
# ShowCrashDialog keeps a crash from waiting behind a window for somebody to press a button.
wine_registry() {
    cat <<'REG'
Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\Software\Wine]
"Version"="win10"

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"

[HKEY_CURRENT_USER\Software\Wine\WineBrowser]
"Browsers"="pixora-note-page"

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows\CurrentVersion\RunServices]
"winemenubuilder"=-

[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"MS UI Gothic"="IPAPGothic"
"MS PGothic"="IPAPGothic"
"MS Gothic"="IPAGothic"
"Meiryo"="IPAPGothic"
REG
}

# What a template depends on; a template with another stamp is made anew.
wine_recipe() {
    wine_registry
    dpkg-query -W -f '${Package} ${Version}\n' wine64 libwine fonts-wine fonts-ipafont-gothic 2>/dev/null
    id -un
    echo 2  # raise when wine_make_template itself changes
}

# wine_environment: what all Wine programs of the project run with. File names are UTF-8 also where no locale is set.
wine_environment() {
    export WINEARCH=win64 WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe=d' WINEDEBUG=fixme-all
    [ "$(locale charmap 2>/dev/null)" = UTF-8 ] || export LC_ALL=C.UTF-8
    [ -n "${HOME:-}" ] || { HOME=$(getent passwd "$(id -u)" | cut -d: -f6); export HOME=${HOME:-/tmp}; }
}

# wine_use PREFIX [FILE]: all further Wine programs use PREFIX. Web pages that a program opens are noted in FILE, a line
# each, instead of being shown (PREFIX/opened-pages by default).
wine_use() {
    wine_environment
    WINEPREFIX=$(cd "$1" && pwd) || return 1
    export WINEPREFIX PIXORA_OPENED_PAGES=${2:-$WINEPREFIX/opened-pages}
    case ":$PATH:" in
    *":$WINEPREFIX/bin:"*) ;;
    *) export PATH=$WINEPREFIX/bin:$PATH ;;
    esac
}

# wine_stop: ends all programs of the prefix in use, in order, and waits until its server is gone.
wine_stop() {
    wineserver -k 2>/dev/null
    wineserver -w 2>/dev/null
    true
}

# wine_make_template DIR: makes the template prefix unless one of the same recipe is there.
wine_make_template() {
    local dir=$1 recipe lock
    mkdir -p "$(dirname "$dir")" || return 1
    exec {lock}>"$dir.lock" && flock "$lock" || return 1
    recipe=$(wine_recipe)
    if [ "$(cat "$dir/.recipe" 2>/dev/null)" = "$recipe" ]; then
        exec {lock}>&-
        return 0
    fi
    rm -rf "$dir"
    mkdir -p "$dir"
    # The lock is not handed down: Wine's server outlives its first program by some seconds.
    if (wine_fill_template "$dir") {lock}>&- </dev/null >"$dir.log" 2>&1; then
        printf '%s\n' "$recipe" >"$dir/.recipe"
        exec {lock}>&-
        return 0
    fi
    exec {lock}>&-
    echo "The Wine prefix could not be made; see $dir.log" >&2
    return 1
}

wine_fill_template() {
    local dir=$1 font link
    wine_use "$dir"
    unset DISPLAY  # no window about the configuration on the user's screen
    "$WINE" wineboot -i || return 1
    wineserver -w
    # This Wine does not look into its own font package; without Tahoma every dialog would be wider.
    for font in /usr/share/wine/fonts/*.ttf /usr/share/fonts/opentype/ipafont-gothic/*.ttf; do
        [ -e "$font" ] && cp "$font" "$dir/drive_c/windows/Fonts/"
    done
    # Desktop, Documents and the like would be links into the user's own home.
    find "$dir/drive_c/users" -type l | while read -r link; do
        rm "$link" && mkdir "$link"
    done
    wine_registry | sed 's/$/\r/' >"$dir/drive_c/pixora.reg"
    "$WINE" regedit /S 'C:\pixora.reg' || return 1
    wine_stop
    rm "$dir/drive_c/pixora.reg"
    mkdir -p "$dir/bin"
    cat >"$dir/bin/pixora-note-page" <<'NOTE'
#!/bin/sh
printf '%s\n' "$1" >>"$PIXORA_OPENED_PAGES"
NOTE
    chmod +x "$dir/bin/pixora-note-page"
    # Settled prefixes only: the fonts' settings and the Windows version must have reached the registry files.
    grep -q '"Version"="win10"' "$dir/user.reg" && grep -q IPAPGothic "$dir/user.reg"
}

# wine_new_prefix TEMPLATE DIR [managed]: DIR becomes a fresh prefix that shares the files of TEMPLATE by hard links.
# "managed" leaves the windows to the window manager, as on a user's desktop.
wine_new_prefix() {
    local template=$1 dir=$2 file
    rm -rf "$dir"
    mkdir -p "$(dirname "$dir")" || return 1
    cp -al "$template" "$dir" 2>/dev/null || { rm -rf "$dir"; cp -a "$template" "$dir"; } || return 1
    # Wine writes these in place; the template must stay as it is.
    for file in "$dir"/*.reg "$dir/.update-timestamp"; do
        [ -e "$file" ] && { cp "$file" "$file.copy" && mv "$file.copy" "$file" || return 1; }
    done
    if [ "${3:-}" = managed ]; then
        sed -i '/^"Managed"="N"/d' "$dir/user.reg"
    fi
}

# wine_path FILE: the Windows path of an existing file or folder, for a program's command line.
wine_path() {
    local full
    full=$(realpath -- "$1") || return 1
    printf 'Z:%s\n' "${full//\//\\}"
}

# screen_start [SIZE [OPTION...]]: starts a virtual screen on a free number and sets DISPLAY.
screen_start() {
    local size=${1:-1920x1080x24} numbers number
    numbers=$(mktemp) || return 1
    [ $# = 0 ] || shift
    Xvfb -displayfd 3 -screen 0 "$size" "$@" -nolisten tcp -noreset 3>"$numbers" >/dev/null 2>&1 </dev/null &
    SCREEN_PIDS=("$!" "${SCREEN_PIDS[@]}")
    if ! wait_until 20 test -s "$numbers"; then
        echo "The virtual screen did not start." >&2
        rm -f "$numbers"
        return 1
    fi
    number=$(cat "$numbers")
    rm -f "$numbers"
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY XAUTHORITY
}

# screen_manager: starts a window manager on the virtual screen, with its own defaults whatever the user's are.
screen_manager() {
    openbox --sm-disable >/dev/null 2>&1 </dev/null &
    SCREEN_PIDS=("$!" "${SCREEN_PIDS[@]}")
    wait_until 20 sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
}

# screen_stop: ends what screen_start and screen_manager started, the newest first.
screen_stop() {
    local pid
    for pid in "${SCREEN_PIDS[@]}"; do
        kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null
    done
    SCREEN_PIDS=()
}

# wait_until SECONDS COMMAND...: repeats the command until it succeeds; fails when the time is over.
wait_until() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.05
    done
}
