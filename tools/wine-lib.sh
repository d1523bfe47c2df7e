# Wine and Xvfb for the demo and the end-to-end tests, sourced by both.
#
# A prefix of the project's own holds the program in a folder with blanks, and a full game and
# a demo laid out on the stand-in game, each with its registry key. It never touches ~/.wine.

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
  export DISPLAY=":$(tr -d '\n' <"$display_file")"
  rm -f "$display_file"
}

stop_xvfb() {
  [[ -n ${XVFB_PID:-} ]] && kill "$XVFB_PID" 2>/dev/null
  XVFB_PID=
}

# Registry text for regedit: a Windows path with its backslashes doubled.
reg_text() { printf '%s' "${1//\\/\\\\}"; }

# make_prefix <folder> <out folder of a build> [options]
#   --driver <folder>   copy driver.exe and opener.exe from there into DRIVER_FOLDER and let
#                       the opener take .html files and web addresses and stand in for the
#                       system information tool, so that each of them is recorded
#   --desktop           a virtual desktop, in which Wine draws title bars and frames itself
make_prefix() {
  local prefix=$1 out=$2 driver='' desktop=0
  shift 2
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
  cp -r "$out"/. "$(drive_c "$PROGRAM_FOLDER")"
  local folder
  for folder in "$FULL_FOLDER" "$DEMO_FOLDER"; do
    mkdir -p "$(drive_c "$folder")"
    cp -r "$out-game"/. "$(drive_c "$folder")"
  done

  local keys
  keys=$(mktemp --suffix=.reg)
  {
    printf 'REGEDIT4\n\n'
    printf '[HKEY_LOCAL_MACHINE\\SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003]\n'
    printf '"Folder"="%s"\n\n' "$(reg_text "$FULL_FOLDER")"
    printf '[HKEY_LOCAL_MACHINE\\SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003Demo]\n'
    printf '"Folder"="%s"\n\n' "$(reg_text "$DEMO_FOLDER")"
    if [[ -n $driver ]]; then
      mkdir -p "$(drive_c "$DRIVER_FOLDER")"
      cp "$driver/driver.exe" "$driver/opener.exe" "$(drive_c "$DRIVER_FOLDER")"
      printf '[HKEY_CLASSES_ROOT\\.html]\n@="KelvarniteDriver.html"\n\n'
      local opener class
      opener=$(reg_text "$DRIVER_FOLDER\opener.exe")
      for class in KelvarniteDriver.html http; do
        printf '[HKEY_CLASSES_ROOT\\%s\\shell\\open\\command]\n' "$class"
        printf '@="\\"%s\\" \\"%%1\\""\n\n' "$opener"
      done
      printf '[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO]\n'
      printf '"PATH"="%s"\n\n' "$opener"
    fi
    if [[ $desktop -eq 1 ]]; then
      printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\n"Desktop"="Default"\n\n'
      printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]\n"Default"="1024x768"\n\n'
    fi
  } >"$keys"
  wine regedit /S "$(winepath -w "$keys" 2>/dev/null)" >/dev/null 2>&1
  rm -f "$keys"
  # The registry reaches its files when the server ends; a copy of the prefix needs them.
  wineserver -w
}
