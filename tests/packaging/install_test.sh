#!/usr/bin/env bash
# The installer as a user meets it: install, run, upgrade while a program has the old library, refuse a downgrade, repair,
# uninstall. In a session of tools/desktop.
# Usage: install_test.sh   (packages are made by tools/package before)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
version=$(sed -n 's/^project(Halyard VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
old=0.0.9
uninstallKey='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Halyard'
runKey='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'
productKey='HKCU\Software\Tevral, Inc.\Halyard'

fail() {
    echo "install_test: $*" >&2
    ls -R "$folder" >&2 || true
    exit 1
}
setup() { wine "build/package/$1/Halyard-$1-setup.exe" /S /CurrentUser "${@:2}"; }
value() { wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$2 *REG_[A-Z]* *//p" || true; }
halyard() { wine "$folder/halyard.exe" "$@"; }
# until_true COMMAND...: within 20 s
until_true() {
    local end=$((SECONDS + 20))
    until "$@"; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.2
    done
}
is_running() { halyard --status | grep -q '^current desktop'; }

# Letters that aren't in the ANSI code page, as users' names have them.
export LC_ALL=C.UTF-8
windowsFolder='C:\Программы\Halyard'
folder=$WINEPREFIX/drive_c/Программы/Halyard

setup "$old" "/D=$windowsFolder" || fail "the old version can't be installed: $?"
for file in halyard.exe uninstall.exe "$old/x86/tvlHalyd.dll" "$old/x64/tvlHalyd.dll" "$old/guide/index.html"; do
    [ -f "$folder/$file" ] || fail "$file is missing"
done
[ "$(value "$uninstallKey" DisplayVersion)" = "$old" ] || fail "the list of programs shows another version"
# What the console says is in its code page.
wine reg export "$runKey" 'C:\run.reg' /y >/dev/null
iconv -f UTF-16 "$WINEPREFIX/drive_c/run.reg" | grep -qF "${windowsFolder//\\/\\\\}\\\\halyard.exe" || fail "it doesn't start with Windows"

# The new user's road: the first start brings the wizard, which the keyboard alone answers; then a hotkey switches.
halyard &
until_true is_running || fail "it doesn't start"
status_has() { halyard --status | grep -qF -- "$1"; }
status_has "enabled: no" || fail "it is on before the user has chosen"
until_true eval 'xdotool search --onlyvisible --name "^Halyard$" >/dev/null 2>&1' || fail "the wizard doesn't come"
sleep 1
import -window root build/package/wizard.png
for key in alt+n alt+n Return; do
    xdotool key "$key"
    sleep 0.7
done
until_true status_has "enabled: yes" || fail "the wizard doesn't turn it on: $(halyard --status)"
until_true status_has 'desktop 3: "Desktop 4"' || fail "the wizard's desktops are missing: $(halyard --status)"
xdotool key ctrl+alt+Right
until_true status_has "current desktop: 1" || fail "the first hotkey does nothing: $(halyard --status)"
xdotool key ctrl+alt+1
until_true status_has "current desktop: 0" || fail "no way back: $(halyard --status)"

until_true eval 'xdotool search --onlyvisible --name "Wine System Tray" >/dev/null 2>&1' || fail "no icon in the notification area"
import -window root build/package/tray.png

# A program is kept out, and let in again.
notepad='C:\windows\notepad.exe'
windows_here() { halyard --status | sed -n 's/^desktop 0: .*, \([0-9]*\) window.*/\1/p'; }
before=$(windows_here)
halyard --exclude "$notepad"
[ "$(halyard --excluded | tr -d '\r')" = "$notepad" ] || fail "kept out are: $(halyard --excluded)"
wine "$notepad" &
until_true eval 'xdotool search --onlyvisible --name Notepad >/dev/null 2>&1' || fail "the program doesn't come up"
[ "$(windows_here)" = "$before" ] || fail "Halyard looks after a program that it is kept out of: $(halyard --status)"
wine taskkill /F /IM notepad.exe >/dev/null || true
halyard --include "$notepad"

# A program has its library when the new version comes.
# The 64-bit one.
wine "$notepad" &
until_true status_has "inside: notepad.exe" || fail "the program hasn't the library inside: $(halyard --status)"

setup "$version" || fail "the new version can't be installed: $?"
! is_running || fail "the old version goes on"
[ "$(value "$uninstallKey" DisplayVersion)" = "$version" ] || fail "the list of programs shows the old version"
if setup "$old"; then fail "a downgrade is taken"; fi
[ "$(value "$uninstallKey" DisplayVersion)" = "$version" ] || fail "the downgrade has changed something"

rm "$folder/$version/x64/tvlHalyd.dll" "$folder/halyard.exe"
setup "$version" || fail "it can't be repaired: $?"
[ -f "$folder/$version/x64/tvlHalyd.dll" ] && [ -f "$folder/halyard.exe" ] || fail "the repair leaves files missing"

# The session ends, and with it all programs that have the old library: the next start removes its folder. What was on is on
# again.
new_session() {
    wineserver -k
    wineserver -w
    wine wineboot
}
new_session
halyard
until_true is_running || fail "the new version doesn't start"
until_true [ ! -e "$folder/$old" ] || fail "the old version's folder stays"
halyard --status | grep -q '^enabled: yes' || fail "it isn't on any more: $(halyard --status)"

# uninstall [SWITCH]: the uninstaller goes on after its first process has ended. A library that programs have mapped, and only
# that, is left to the start of the next session; Wine passes over what a user wants done then.
uninstall() {
    wine "$folder/uninstall.exe" /S /CurrentUser "$@"
    local once left
    until_true eval '[ ! -e "$folder" ] || [ -n "$(value "${runKey}Once" HalyardRemoval)" ]' || fail "it isn't uninstalled"
    once=$(value "${runKey}Once" HalyardRemoval)
    left=$(cd "$folder" 2>/dev/null && find . -type f ! -name tvlHalyd.dll) || true
    [ -z "$left" ] || fail "files stay behind: $left"
    [ ! -e "$folder" ] || [[ $once == 'cmd.exe /c rmdir /s /q "C:\'*'\Halyard"' ]] || fail "nobody removes the rest: $once"
    new_session
    rm -rf "$folder"
}
uninstall
[ -z "$(value "$uninstallKey" DisplayVersion)$(value "$runKey" Halyard)" ] || fail "registry values stay behind"
[ -n "$(value "$productKey" Run)" ] || fail "the user's settings are gone"
setup "$version" "/D=$windowsFolder"
uninstall /RemoveSettings
[ -z "$(value "$productKey" Run)" ] || fail "the settings stay although they were to go"
echo "installed, upgraded, repaired, uninstalled"
