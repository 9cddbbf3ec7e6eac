# shellcheck shell=bash disable=SC2034
# The Debian packages that each script needs, and a function that installs those that are missing.
# Sourced by the scripts; needs bash.

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libglib2.0-dev libxcb1-dev)
# The program asks `ping` where the system grants its user no ICMP socket, and needs a plugin of the
# toolkit to be at home on Wayland.
run_packages=(iputils-ping fonts-dejavu-core qt6-wayland)
# A virtual screen with a hand and an eye, and machines to be checked.
stage_packages=(xvfb xdotool scrot xrdp iproute2)
test_packages=(libgtest-dev tidy dbus-daemon trayer weston python3-minimal openbox python3-dbus python3-gi
  python3-xlib)
bench_packages=(fping)
# dpkg-dev finds the libraries that the package depends on; the others look at what came out.
package_packages=(dpkg-dev devscripts lintian appstream desktop-file-utils man-db)
ci_packages=(clang clang-format clang-tidy libclang-rt-14-dev llvm googletest)
# The program for Windows and its setup program, and what runs both here.
windows_packages=(cmake ninja-build g++-mingw-w64-x86-64-win32 nsis)
wine_packages=(wine wine64 procps)

# The service that comes with xrdp would open this machine to the network. Only the server program
# is wanted, so the service is masked before it can start for the first time.
mask_xrdp_service() {
  local unit
  "$@" mkdir -p /etc/systemd/system
  for unit in xrdp.service xrdp-sesman.service; do
    if [[ ! -e /etc/systemd/system/$unit ]]; then
      "$@" ln -s /dev/null "/etc/systemd/system/$unit"
    fi
  done
  echo "xrdp is wanted as a test peer only: its service stays off (systemctl unmask turns it on)."
}

# Installs the packages that are missing. Without one missing it touches neither apt nor the network.
install_missing() {
  if ! command -v dpkg-query apt-get >/dev/null; then
    echo "This is no Debian system, so nothing is installed. Wanted are: $*" >&2
    return
  fi

  local package missing=()
  for package in "$@"; do
    if [[ "$(dpkg-query -W -f='${db:Status-Status} ' "$package" 2>/dev/null)" != installed* ]]; then
      missing+=("$package")
    fi
  done
  if ((${#missing[@]} == 0)); then return; fi

  local as_root=()
  if ((EUID != 0)); then as_root=(sudo); fi
  if ((EUID != 0)) && ! command -v sudo >/dev/null; then
    echo "Debian packages are missing, and there is no sudo to install them with. As root, run:" >&2
    echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
    return 1
  fi

  echo "Installing: ${missing[*]}"
  if [[ " ${missing[*]} " == *" xrdp "* ]]; then
    mask_xrdp_service "${as_root[@]}"
  fi
  # A source that is out of reach is no reason to stop: the others may have what is missing.
  "${as_root[@]}" apt-get update -q || true
  if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}"; then
    echo "These Debian packages could not be installed: ${missing[*]}" >&2
    return 1
  fi
}
