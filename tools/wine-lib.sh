# shellcheck shell=bash
# Wine and Xvfb for the demo, the end-to-end tests and the benchmarks, sourced by each.
#
# A prefix of the project's own holds the program in a folder with blanks, and a full game and
# a demo laid out on the stand-in game, each with its registry key. It never touches ~/.wine.

# Program Files, which the help advises against on Windows: in a prefix that folder belongs to
# the prefix's owner and Wine sends nothing written there elsewhere, so the report is where the
# browser and the tests look.
readonly PROGRAM_FOLDER='C:\Program Files\Kelvarnite UT2k3 Benchmark'
readonly FULL_FOLDER='C:\Games\UT2003'
readonly DEMO_FOLDER='C:\Games\UT2003 Demo'
# The end-to-end driver and the recording opener of .html files.
readonly DRIVER_FOLDER='C:\Kelvarnite Driver'

# The Unix path of a Windows path on drive C of the prefix.
drive_c() {
  local path=${1#C:\\}
  printf '%s/drive_c/%s' "$WINEPREFIX" "${path//\\//}"
}

# A virtual display of its own, on a free display number; stopped by stop_xvfb.
start_xvfb() {
  local display_file
  display_file=$(mktemp)
  Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$display_file" >/dev/null 2>&1 &
  XVFB_PID=$!
  for _ in $(seq 100); do
    [[ -s $display_file ]] && break
    sleep 0.1
  done
  [[ -s $display_file ]] || { echo "Xvfb did not start" >&2; return 1; }
  DISPLAY=":$(tr -d '\n' <"$display_file")"
  export DISPLAY
  rm -f "$display_file"
}

stop_xvfb() {
  [[ -n ${XVFB_PID:-} ]] && kill "$XVFB_PID" 2>/dev/null
  XVFB_PID=
}

# Registry text for regedit: a Windows path with its backslashes doubled.
reg_text() { printf '%s' "${1//\\/\\\\}"; }

# import_keys <view: 32 or 64> <registry text in regedit's format>: the game's 32-bit setup
# leaves its keys in the 32-bit view of a 64-bit Windows, which is where a 32-bit program reads
# HKLM\Software; Wine's own desktop settings live in the 64-bit view.
import_keys() {
  local keys
  keys=$(mktemp --suffix=.reg)
  printf 'REGEDIT4\n\n%s' "$2" >"$keys"
  wine reg import "$(winepath -w "$keys" 2>/dev/null)" "/reg:$1" >/dev/null 2>&1
  local status=$?
  rm -f "$keys"
  return $status
}

# make_prefix <folder> <program folder> <game folder> [options]
#   the program folder is the release as unpacked from its zip; the game folder is the
#   stand-in's, laid out twice, as the full game and as the demo
#   --driver <folder>   copy driver.exe, probe.dll, opener.exe and the scenario table from there
#                       into DRIVER_FOLDER and let the opener take .html files and web addresses
#                       and stand in for the system information tool, so that each is recorded
#   --desktop           a virtual desktop, in which Wine draws title bars and frames itself
make_prefix() {
  local prefix=$1 program=$2 game=$3 driver='' desktop=0
  shift 3
  while [[ $# -gt 0 ]]; do
    case $1 in
      --driver) driver=$2; shift 2 ;;
      --desktop) desktop=1; shift ;;
      *) echo "make_prefix: unknown option $1" >&2; return 2 ;;
    esac
  done
  export WINEPREFIX=$prefix WINEDEBUG=-all
  rm -rf "$prefix"
  mkdir -p "$prefix"
  # Without Mono and Gecko: their installers would ask for a download on the first boot.
  WINEDLLOVERRIDES='mscoree,mshtml=' wine wineboot --init >/dev/null 2>&1 || true

  mkdir -p "$(drive_c "$PROGRAM_FOLDER")"
  cp -r "$program"/. "$(drive_c "$PROGRAM_FOLDER")"
  local folder
  for folder in "$FULL_FOLDER" "$DEMO_FOLDER"; do
    mkdir -p "$(drive_c "$folder")"
    cp -r "$game"/. "$(drive_c "$folder")"
  done

  local game_keys
  # The version of each, as the game's setup writes it, for the index of kept reports.
  game_keys="[HKEY_LOCAL_MACHINE\\SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003]
\"Folder\"=\"$(reg_text "$FULL_FOLDER")\"
\"Version\"=\"2225\"

[HKEY_LOCAL_MACHINE\\SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003Demo]
\"Folder\"=\"$(reg_text "$DEMO_FOLDER")\"
\"Version\"=\"2206\"

" shared_keys=''
  if [[ -n $driver ]]; then
    mkdir -p "$(drive_c "$DRIVER_FOLDER")"
    cp "$driver"/{driver.exe,probe.dll,opener.exe,scenarios.txt} "$(drive_c "$DRIVER_FOLDER")"
    local opener class
    opener=$(reg_text "$DRIVER_FOLDER\\opener.exe")
    game_keys+="[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO]
\"PATH\"=\"$opener\"

"
    shared_keys+="[HKEY_CLASSES_ROOT\\.html]
@=\"KelvarniteDriver.html\"

"
    for class in KelvarniteDriver.html http; do
      shared_keys+="[HKEY_CLASSES_ROOT\\$class\\shell\\open\\command]
@=\"\\\"$opener\\\" \\\"%1\\\"\"

"
    done
  fi
  local desktop_keys=''
  if [[ $desktop -eq 1 ]]; then
    desktop_keys="[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]
\"Desktop\"=\"Default\"

[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]
\"Default\"=\"1024x768\"

"
  fi
  if ! import_keys 32 "$game_keys$shared_keys" || ! import_keys 64 "$shared_keys$desktop_keys"; then
    echo "make_prefix: the registry keys could not be written" >&2
    return 1
  fi
  # The registry reaches its files when the server ends; a copy of the prefix needs them.
  wineserver -w
}
