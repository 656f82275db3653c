# Installing what is missing, and building.

packages=(
  g++ cmake ninja-build ccache make                                         # native build
  libgtest-dev libgmock-dev googletest libcli11-dev libsqlite3-dev          # libraries of tests and tools
  libfmt-dev libxlsxwriter-dev nlohmann-json3-dev                           # libraries of the console program
  unixodbc-dev odbcinst libsqliteodbc odbc-mariadb                          # ODBC and the drivers of the tests
  mariadb-server-core mariadb-client-core                                   # a private server, started by the tests
  g++-mingw-w64-i686-posix mingw-w64-tools libwine-dev libwine              # 32-bit Windows: compiler, widl, IDL files
  mmdebstrap arch-test debian-archive-keyring util-linux mount                              # the Wine box
)
# What the tests need beyond that; each part of the door adds its own.
test_packages=(
  clang-format time unzip
  chromium fonts-liberation poppler-utils zbar-tools                        # pages shown, printed, and their barcodes read
)

# Installs what is missing of the packages, and makes the Wine box: setup [PACKAGE beyond those that a build needs…].
setup() {
  local package missing=()
  for package in "${packages[@]}" "$@"; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  if [ ${#missing[@]} -gt 0 ]; then
    step "instala ${#missing[@]} pacotes: ${missing[*]}"
    logged apt-update as_root apt-get update
    logged apt-install as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
  fi
  box make
}

# Configures and builds a preset: build_preset PRESET [TARGET…].
build_preset() {
  local preset=$1; shift
  step "compila: $preset"
  logged "cmake-$preset" cmake --preset "$preset"
  logged "ninja-$preset" ninja -C "build/$preset" -j "$jobs" "$@"
}

# The component and what serves it in the box: build_served [NATIVE TARGET beyond the tools of the demonstration…].
build_served() {
  setup
  build_preset win32 KodraRpt kodra_ado kodra_siblings_com
  build_preset native kodra-demo-data kodra-mariadb "$@"
}

build() { build_served kodrarpt; }
