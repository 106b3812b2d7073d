# What the scripts share. To be sourced from the project's folder.

# install_packages [LIST...]: installs what is missing of scripts/packages.txt and of the lists
# given. Quiet when everything is there.
install_packages() {
  local missing=() package
  while read -r package; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' installed$' || missing+=("$package")
  done < <(sed 's/#.*//; s/[[:space:]]//g; /^$/d' scripts/packages.txt "$@")
  [ "${#missing[@]}" -eq 0 ] && return
  echo "Installing: ${missing[*]}"
  local sudo=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing and only root can install them: ${missing[*]}" >&2
      exit 1
    fi
    sudo=(sudo)
  fi
  "${sudo[@]}" apt-get update -qq
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures and builds; the configuration's output is shown only when it
# fails.
build() {
  local preset="$1" log="build/configure-$1.log"
  shift
  mkdir -p build
  if ! cmake --preset "$preset" >"$log" 2>&1; then
    cat "$log" >&2
    return 1
  fi
  cmake --build --preset "$preset" ${1:+--target "$@"}
}
