# Sourced after setup.sh: a Wine prefix of the project's own in the build folder, a display, and programs run in them.
# Results do not depend on the machine: with this locale Wine is American English with code page 1252.

export WINEPREFIX=$ROOT/build/wine
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
export LC_ALL=C.UTF-8
unset LANGUAGE WINEARCH WINELOADER WINESERVER

X64=build/win-x64/bin
X_SERVER=

# The name that a Windows program knows a file by.
WindowsPath() { printf 'Z:%s' "$(realpath -m "$1")" | tr / '\\'; }

# Makes the prefix once. A desktop window of Wine's own gives windows frames and focus without a window manager.
NeedPrefix() {
    [[ -f $WINEPREFIX/ready ]] && return
    Say "making the Wine prefix"
    rm -rf "$WINEPREFIX"
    Logged wine-prefix env -u DISPLAY wineboot -i || return 1
    local settings=$LOGS/wine-settings.reg
    cat >"$settings" <<'REG'
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\Explorer]
"Desktop"="Default"

[HKEY_CURRENT_USER\Software\Wine\Explorer\Desktops]
"Default"="1024x768"
REG
    Logged wine-settings env -u DISPLAY wine regedit /S "$(WindowsPath "$settings")" || return 1
    wineserver -k
    wineserver -w
    touch "$WINEPREFIX/ready"
}

# A display that nobody sees, with Wine's own fonts only, so that pictures look the same everywhere.
StartHiddenDisplay() {
    local number=$LOGS/display
    : >"$number"
    export FONTCONFIG_FILE=$ROOT/tools/fonts.conf
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$number" >"$LOGS/xvfb.log" 2>&1 &
    X_SERVER=$!
    for _ in {1..100}; do
        if [[ -s $number ]]; then
            DISPLAY=:$(<"$number")
            export DISPLAY
            return
        fi
        sleep 0.1
    done
    Say "failed: Xvfb does not start; see build/logs/xvfb.log"
    return 1
}

# Ends what was started here: programs left in the prefix, and the display.
EndWine() {
    [[ -d $WINEPREFIX ]] && wineserver -k 2>/dev/null
    [[ -n $X_SERVER ]] && kill "$X_SERVER" 2>/dev/null && wait "$X_SERVER" 2>/dev/null
    X_SERVER=
}
trap EndWine EXIT
trap 'exit 130' INT TERM

# Makes the classes known to programs in the prefix.
RegisterRecords() { Logged register-records wine regsvr32 /s "$(WindowsPath $X64/OrmiskRecords.dll)"; }
RegisterControl() { Logged register wine regsvr32 /s "$(WindowsPath $X64/OrmiskGrid.ocx)"; }
