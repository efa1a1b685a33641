# A Wine session for scripts that run Windows programs: sourced by bash.
#
#   wine_open x64|x86 FOLDER   a screen of its own and a Wine prefix in which FOLDER's programs can run
#   wine_run PROGRAM ARG...    runs a program of FOLDER, prints its output and returns its exit status
#   wine_close                 ends all of it; also happens when the script exits, however it ends
#
# DISPLAY is the session's screen between open and close. WINE_SECONDS bounds each program (600 unless set);
# one that takes longer is ended with status 124, after a picture of the screen was put beside its log.
#
# 64-bit programs run in the installed Wine. 32-bit ones run in a small Debian system of their own, because a
# 32-bit Wine can seldom be installed beside the 64-bit one; tools/wine/make-chroot makes it.

wine_build=${VELTRO_BUILD:-$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)/build}
wine_chroot=${XDG_CACHE_HOME:-$HOME/.cache}/veltro/wine32
wine_word_size=
wine_screen_process=
wine_timer=

# Sets DISPLAY to a new screen; the X server itself finds a free number.
wine_start_screen() {
    local number
    exec {wine_number_pipe}<> <(:)
    Xvfb -displayfd "$wine_number_pipe" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
    wine_screen_process=$!
    if ! read -r -t 30 -u "$wine_number_pipe" number; then
        echo "wine: no screen: Xvfb did not start" >&2
        return 1
    fi
    exec {wine_number_pipe}>&-
    export DISPLAY=:$number
}

# Runs a command line where the session's Wine lives.
wine_inside() {
    local -a setting=(WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=' DISPLAY="$DISPLAY" LC_ALL=C.UTF-8)
    if [ "$wine_word_size" = x64 ]; then
        (cd "$wine_folder" && exec env "${setting[@]}" WINEPREFIX="$wine_prefix" "$@")
    else
        # Without /proc, which only a mount could bring in, Wine does not find its libraries by itself.
        "${wine_as_root[@]}" chroot "$wine_chroot" env -i "${setting[@]}" PATH=/usr/bin:/bin HOME=/root \
            WINEPREFIX=/root/prefix WINEDLLPATH=/usr/lib/i386-linux-gnu/wine \
            sh -c 'cd /opt/veltro && exec "$@"' sh "$@"
    fi
}

wine_open() {
    wine_word_size=$1
    wine_folder=$2
    wine_as_root=()
    mkdir -p "$wine_build"
    if [ "$wine_word_size" = x64 ]; then
        wine_loader=/usr/lib/wine/wine64
        wine_server=/usr/lib/wine/wineserver64
        wine_prefix=$wine_build/wine-x64
        exec {wine_lock}>"$wine_prefix.lock"
    else
        wine_loader=/usr/lib/wine/wine
        wine_server=/usr/lib/wine/wineserver32
        wine_prefix=$wine_chroot/root/prefix
        exec {wine_lock}>"$wine_chroot.lock"
        [ "$(id -u)" = 0 ] || wine_as_root=(sudo)
    fi
    # One session a prefix: two would end each other's programs.
    if ! flock --timeout 1200 "$wine_lock"; then
        echo "wine: another session holds $wine_prefix" >&2
        return 1
    fi
    trap wine_close EXIT
    trap 'exit 129' HUP
    trap 'exit 130' INT
    trap 'exit 143' TERM
    if [ "$wine_word_size" = x86 ]; then
        "${wine_as_root[@]}" rm -rf "$wine_chroot/opt/veltro"
        "${wine_as_root[@]}" mkdir -p "$wine_chroot/opt/veltro"
        "${wine_as_root[@]}" cp -r "$wine_folder/." "$wine_chroot/opt/veltro"
    fi
    wine_start_screen || return 1
    wine_make_prefix
}

# A prefix is made once. The mark is written last: half a prefix is made again.
wine_make_prefix() {
    if "${wine_as_root[@]}" test -e "$wine_prefix/made"; then
        return 0
    fi
    "${wine_as_root[@]}" rm -rf "$wine_prefix"
    if ! wine_inside timeout --kill-after=10 300 "$wine_loader" wineboot.exe -i >"$wine_build/wine.log" 2>&1 \
        </dev/null {wine_lock}>&-; then
        echo "wine: no prefix could be made:" >&2
        cat "$wine_build/wine.log" >&2
        return 1
    fi
    # The screen has no window manager: Wine itself draws captions and moves the focus, instead of waiting two
    # seconds for one at every dialog.
    wine_inside timeout 60 "$wine_loader" reg.exe add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f \
        >>"$wine_build/wine.log" 2>&1 </dev/null {wine_lock}>&-
    wine_inside timeout 60 "$wine_server" -w {wine_lock}>&-
    "${wine_as_root[@]}" touch "$wine_prefix/made"
}

# The output goes through a file: services that Wine leaves running would keep a pipe open.
wine_run() {
    local log=$wine_build/wine-$wine_word_size.log seconds=${WINE_SECONDS:-600} status=0 program
    wine_inside timeout --kill-after=10 "$seconds" "$wine_loader" "$@" >"$log" 2>&1 </dev/null {wine_lock}>&- &
    program=$!
    wine_picture_before_end "$seconds" "${log%.log}.png" {wine_lock}>&- >/dev/null 2>&1 </dev/null &
    wine_timer=$!
    wait "$program" || status=$?
    wine_stop_timer
    tr -d '\r' <"$log"
    if [ "$status" = 124 ]; then
        echo "wine: $1 took longer than $seconds s; its last screen is ${log%.log}.png" >&2
    fi
    return "$status"
}

# A program that hangs mostly waits at a dialog: the picture shows which. (read waits without a process that
# would outlive the session.)
wine_picture_before_end() {
    read -r -t $(($1 - 2)) -u 3 3<> <(:)
    import -window root "$2"
}

wine_stop_timer() {
    if [ -n "$wine_timer" ]; then
        kill "$wine_timer" 2>/dev/null
        wait "$wine_timer" 2>/dev/null
        wine_timer=
    fi
}

wine_close() {
    trap - EXIT HUP INT TERM
    wine_stop_timer
    [ -n "$wine_screen_process" ] || return 0
    wine_inside timeout 30 "$wine_server" -k {wine_lock}>&- || true
    kill "$wine_screen_process" 2>/dev/null
    wait "$wine_screen_process" 2>/dev/null
    wine_screen_process=
    exec {wine_lock}>&-
}
