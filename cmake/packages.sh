# shellcheck shell=bash
# What Debian 12 must have for building, running and checking. Sourced, not run.

build_packages=(
  g++ cmake ninja-build ccache
  qt6-base-dev libqt6svg6 qt6-image-formats-plugins fonts-dejavu-core
  rapidjson-dev libdbus-1-dev libxcb1-dev libpng-dev libexpat1-dev libglib2.0-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xdotool xclip openbox dbus x11-utils
  at-spi2-core python3-pyatspi gir1.2-atspi-2.0
  clang-format-16)
full_packages=(clang-16 clang-tidy-16 libclang-rt-16-dev)

# Installs those of the named packages that are missing; quick where there are none.
install_packages() {
  local missing
  if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system; please provide what these packages hold: $*"
    return 0
  fi
  missing=$(comm -23 <(printf '%s\n' "$@" | sort -u) \
    <(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
      sed -n 's/ installed$//p' | sort -u))
  [[ -z $missing ]] && return 0

  local as_root=()
  if [[ $(id -u) != 0 ]]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing, and there is neither root nor sudo to install them:" $missing
      return 1
    }
    as_root=(sudo)
  fi
  echo "Installing:" $missing
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive
    apt-get -qq -o DPkg::Lock::Timeout=500 -o Dpkg::Use-Pty=0)
  "${apt[@]}" update &&
    "${apt[@]}" install -y --no-install-recommends $missing >/dev/null
}
