# Sourced by ./run and ./test: what a fresh Debian 12 lacks is installed, as root or with sudo.

install_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# The C++ files of the project, one a line.
sources() {
  find . \( -name build -o -name .git \) -prune -o \( -name '*.h' -o -name '*.cpp' \) -printf '%P\n' | sort
}
