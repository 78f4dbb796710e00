# shellcheck shell=bash
# What the commands share: getting a bare Debian 12 ready, building, Wine prefixes and displays.
# Sourced from the project's root with `set -euo pipefail`. Everything made lies below build/, but for
# tests/page/node_modules: Node.js looks for modules only above the files that ask for them.

# Wine needs certain addresses, and once in some thousand starts finds that the kernel has drawn one of
# them for something else. So the command starts again, with nothing left to chance where that is allowed.
if ! ((0x$(</proc/self/personality) & 0x40000)) && setarch --addr-no-randomize true 2>/dev/null; then
  cd "$OLDPWD"
  exec setarch --addr-no-randomize bash "$0" "$@"
fi

readonly kBuild="$PWD/build"
# Wine names files in the locale's characters, and a bare machine's has no Chinese ones.
export LC_ALL=C.UTF-8
# shellcheck disable=SC2034  # each command takes the lists that it needs
readonly kWindowsPackages=(cmake ninja-build g++-mingw-w64-x86-64-posix googletest)
# shellcheck disable=SC2034
readonly kScreenPackages=(wine wine64 xvfb xauth openbox imagemagick xdotool zbar-tools
  libgl1-mesa-dri libglx-mesa0 fonts-liberation fonts-noto-cjk)
# shellcheck disable=SC2034
readonly kTwoMonitorsPackages=(xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils)
# shellcheck disable=SC2034
readonly kNativePackages=(g++ libgtest-dev libbenchmark-dev libcpp-httplib-dev libmicrohttpd-dev clang
  lld libclang-rt-14-dev clang-format clang-tidy shellcheck gcovr)
# shellcheck disable=SC2034
readonly kPackagePackages=(git zip unzip)
# shellcheck disable=SC2034
readonly kPagePackages=(chromium-headless-shell nodejs fonts-liberation fonts-noto-cjk)

say() { printf '%s\n' "$*" >&2; }

# fail MESSAGE ADVICE: says what is missing and what to do about it.
fail() {
  say "error: $1"
  say "       $2"
  exit 1
}

# logged NAME ADVICE COMMAND...: keeps the output out of sight unless the command fails.
logged() {
  local log="$kBuild/log/$1.log" advice="$2"
  shift 2
  mkdir -p "$kBuild/log"
  if ! "$@" >"$log" 2>&1 </dev/null; then
    tail -n 40 "$log" >&2
    fail "failed: $* (all of its output: $log)" "$advice"
  fi
}

ensure_packages() {
  local missing=() package
  for package in "$@"; do
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  ((${#missing[@]})) || return 0

  local by_hand="install by hand: apt-get install --no-install-recommends ${missing[*]}"
  local as_root=()
  if ((EUID != 0)); then
    command -v sudo >/dev/null || fail "missing packages, and neither root nor sudo" "$by_hand"
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
  logged apt-update "check the network and /etc/apt/sources.list*, then run this again" \
    "${apt[@]}" update
  logged apt-install "$by_hand" "${apt[@]}" install -y --no-install-recommends "${missing[@]}"
}

# The QR code library has no package for Windows. Its source comes through apt, from the mirror
# that this machine uses, in a state directory of its own: the machine's lists stay as they are.
ensure_qrcodegen() {
  local archive=qr-code-generator_1.8.0.orig.tar.gz
  local sha256=2ec0a4d33d6f521c942eeaf473d42d5fe139abcfa57d2beffe10c5cf7d34ae60
  local target="$kBuild/third_party/qrcodegen" state="$kBuild/apt"
  [[ -e $target/cpp/qrcodegen.cpp ]] && return

  local codename mirror
  # shellcheck source=/dev/null
  codename=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
  # The sources may name the release or "stable", which is told apart only where lists were fetched.
  mirror=$(for key in Codename Release; do
    apt-get indextargets --format "\$(REPO_URI)" 'Created-By: Packages' "$key: $codename" \
      'Component: main'
  done | head -n 1)
  [[ $mirror ]] || fail "no Debian archive for $codename in /etc/apt/sources.list*" \
    "add the line for $codename main of your Debian mirror"
  say "Fetching the source of qr-code-generator"
  rm -rf "$state" "$target"
  mkdir -p "$state/lists/partial" "$state/cache/archives/partial" "$target"
  printf 'deb-src %s %s main\n' "$mirror" "$codename" >"$state/sources.list"
  local apt=(apt-get -q -o "Dir::State::Lists=$state/lists" -o "Dir::Cache=$state/cache"
    -o "Dir::Etc::sourcelist=$state/sources.list" -o Dir::Etc::sourceparts=-
    -o "APT::Sandbox::User=$(id -un)")
  logged apt-source-update "check the network, then run this again" "${apt[@]}" update
  logged apt-source "check that $mirror carries sources" env -C "$state" \
    "${apt[@]}" source --tar-only --download-only qr-code-generator
  printf '%s  %s\n' "$sha256" "$state/$archive" | sha256sum --check --status ||
    fail "$archive is not the file that was expected" "try again with another Debian mirror"
  tar -xzf "$state/$archive" -C "$target" --strip-components=1
  rm -rf "$state"
}

# What the tests of the remote's page import and what lints them, at the versions of package-lock.json.
ensure_page_modules() {
  local folder=tests/page
  [[ ! $folder/node_modules/.package-lock.json -nt $folder/package-lock.json ]] || return 0
  # Some builds of Node.js bring npm along and exclude Debian's package of it.
  command -v npm >/dev/null || ensure_packages npm
  say "Fetching the modules of the page's tests"
  # By itself Node.js trusts no certificate that was added to this machine, such as a proxy's.
  [[ ! -e /etc/ssl/certs/ca-certificates.crt ]] ||
    export NODE_EXTRA_CA_CERTS="${NODE_EXTRA_CA_CERTS:-/etc/ssl/certs/ca-certificates.crt}"
  logged npm "check the network and that npm can reach its registry" \
    npm ci --prefix "$folder" --ignore-scripts --no-audit --no-fund
  touch "$folder/node_modules/.package-lock.json"
}

configure() {
  logged "configure-$1" "remove the folder of the preset in build and run this again" cmake --preset "$1"
}

# build PRESET [TARGET...]: all targets where none is named. It gives way to tests that run beside it.
build() {
  local preset="$1"
  shift
  say "Building $preset"
  configure "$preset"
  logged "build-$preset" "the first error above tells where to look" \
    nice cmake --build --preset "$preset" ${1:+--target "$@"}
}

# use_prefix NAME DPI: makes the Wine prefix once, and turns this shell to it. Wine moves, stacks and
# activates windows all by itself, as Windows does: a window manager would keep a full-screen show
# above the black screen.
use_prefix() {
  export WINEPREFIX="$kBuild/wine/$1" WINEARCH=win64 WINEDEBUG=-all
  export WINEDLLOVERRIDES='mscoree=;mshtml='  # neither is used, and each would ask to be fetched
  # Spares each program that paints a fifth of its start: by default, Mesa clears 128 MB for buffers and
  # compares 840 kinds of pixels, of which 480 are left.
  export MESA_EXTENSION_OVERRIDE=-GL_ARB_buffer_storage allow_rgb10_configs=false MESA_DEBUG=silent
  [[ -e $WINEPREFIX/ready ]] && return
  say "Making the Wine prefix $1"
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  logged "wine-$1" "remove build/wine and run this again" wineboot -i
  # A family that does not exist makes DirectWrite fail where Windows always has these three.
  cat >"$WINEPREFIX/setup.reg" <<REG
REGEDIT4

[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]
"Arial"="Liberation Sans"
"Segoe UI"="Noto Sans CJK SC"
"Consolas"="Liberation Mono"
; The title bars' own, whose place a font without Chinese would take.
"Tahoma"="Noto Sans CJK SC"

[HKEY_CURRENT_USER\\Control Panel\\Desktop]
"LogPixels"=dword:$(printf '%08x' "$2")

; Without it the painting thread waits busily for a second one.
[HKEY_CURRENT_USER\\Software\\Wine\\Direct3D]
"csmt"=dword:00000000

[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]
"Managed"="N"
REG
  logged "wine-$1-registry" "remove build/wine and run this again" \
    wine regedit /S "$(windows_path "$WINEPREFIX/setup.reg")"
  wineserver -k || true  # the fonts and the resolution are read when the server starts
  wineserver -w
  touch "$WINEPREFIX/ready"
}

# on_processor NUMBER: this shell stays there, with all that it starts. Each call of Wine goes to its
# server and back, and waking the other side on a second processor takes it three times as long.
# Where the number is not for us, it goes on wherever it is.
on_processor() {
  taskset --cpu-list --pid $(($1 % $(nproc --all))) "$BASHPID" >/dev/null 2>&1 || true
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# A screen of our own, with a window manager.
screen_size=1280x800
start_display() {
  local number="$kBuild/display-$BASHPID"
  mkdir -p "$kBuild/log"
  Xvfb -displayfd 3 -screen 0 "${screen_size}x24" -nolisten tcp 3>"$number" >"$kBuild/log/xvfb.log" 2>&1 &
  own_processes+=($!)
  wait_until 20 test -s "$number" ||
    fail "the virtual display did not start" "see build/log/xvfb.log"
  DISPLAY=":$(<"$number")"
  export DISPLAY
  rm -f "$number"
  start_window_manager
}

# Windows have no frame without one. Wine shows the tray icons of a screen without a taskbar in a
# window of its own, which must not take the focus from what a test has just opened.
start_window_manager() {
  local config="$kBuild/openbox.xml"
  cat >"$config" <<'XML'
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <applications>
    <application title="Wine System Tray"><focus>no</focus><iconic>yes</iconic></application>
  </applications>
</openbox_config>
XML
  openbox --config-file "$config" >"$kBuild/log/openbox.log" 2>&1 &
  own_processes+=($!)
}

# A screen of two monitors, side by side. A virtual one has only one, so this is a real X server
# with a driver that draws into memory. Two screens of that size are what the memory is for.
start_two_monitors() {
  local number="$kBuild/display-$BASHPID" config="$kBuild/two-monitors.conf"
  mkdir -p "$kBuild/log"
  cat >"$config" <<'CONF'
Section "Device"
  Identifier "memory"
  Driver "dummy"
  VideoRam 65536
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5-1000
  VertRefresh 5-200
EndSection
Section "Screen"
  Identifier "screen"
  Device "memory"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Modes "1024x768"
    Virtual 2048 768
  EndSubSection
EndSection
CONF
  Xorg -displayfd 3 -config "$config" -noreset -novtswitch -sharevts -nolisten tcp \
    -logfile "$kBuild/log/xorg.log" 3>"$number" >"$kBuild/log/xorg-output.log" 2>&1 &
  own_processes+=($!)
  wait_until 20 test -s "$number" ||
    fail "the display with two monitors did not start" "see build/log/xorg.log"
  DISPLAY=":$(<"$number")"
  export DISPLAY
  rm -f "$number"
  logged two-monitors "see build/log/xorg.log" xrandr --addmode DUMMY1 1024x768
  logged two-monitors "see build/log/xorg.log" \
    xrandr --output DUMMY1 --mode 1024x768 --right-of DUMMY0
  # Wine only reads what the server knows already; a plain query makes the server look.
  logged two-monitors "see build/log/xorg.log" xrandr
  start_window_manager
}

# From here on what Wine plays goes to a file; MARLUNE_SOUND tells the tests its name.
record_sound() {
  local config="$WINEPREFIX/sound.conf" recording="$WINEPREFIX/sound.raw"
  cat >"$config" <<CONF
pcm.!default {
  type file
  slave.pcm "null"
  file "$recording"
  format "raw"
}
pcm.null { type null }
ctl.!default { type null }
CONF
  ALSA_CONFIG_PATH="$config"
  MARLUNE_SOUND=$(windows_path "$recording")
  export ALSA_CONFIG_PATH MARLUNE_SOUND
  logged wine-sound "remove build/wine and run this again" \
    wine reg add 'HKCU\Software\Wine\Drivers' /v Audio /d alsa /f
}

# wait_until SECONDS COMMAND...
wait_until() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    ((SECONDS < end)) || return 1
    sleep 0.1
  done
}

# Ends what this shell started and nothing else; both commands set it as their EXIT trap.
own_processes=()
end_own_processes() {
  [[ ! -e ${WINEPREFIX:-}/ready ]] || wineserver -k || true
  local id
  for id in "${own_processes[@]}"; do
    kill "$id" 2>/dev/null || true
    wait "$id" || true
  done
}
