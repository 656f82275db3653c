# Installs what is missing, and builds.

packages=(
  g++ cmake ninja-build ccache make                                         # native build
  libgtest-dev libgmock-dev googletest libcli11-dev libsqlite3-dev          # libraries of tests and tools
  libfmt-dev libxlsxwriter-dev nlohmann-json3-dev                           # libraries of the console program
  unixodbc-dev odbcinst libsqliteodbc odbc-mariadb                          # ODBC and the drivers of the tests
  mariadb-server-core mariadb-client-core                                   # a private server, started by the tests
  g++-mingw-w64-i686-posix mingw-w64-tools libwine-dev libwine              # 32-bit Windows: compiler, widl, IDL files
  libz-mingw-w64-dev                                                        # for the spreadsheet library in Windows programs
  mmdebstrap arch-test debian-archive-keyring util-linux mount              # the Wine environment
)
# What the tests need besides; each script adds its own packages.
test_packages=(
  clang-format time unzip
  chromium fonts-liberation poppler-utils zbar-tools                        # pages shown, printed, and their barcodes read
)

# Installs the missing packages and makes the Wine environment: setup [PACKAGE beyond those that a build needs…].
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
  wine_environment make
  windows_sources
}

# The library that writes spreadsheets, as source, for the console program on Windows: Debian builds it only for Debian.
# The cache contains it, from Debian's own source package, whose signature apt checks. Without it the program for
# Windows writes no spreadsheets.
windows_sources() {
  local folder=$KODRA_CACHE/libxlsxwriter work
  [ ! -d "$folder" ] || return 0
  step "busca o código da biblioteca de planilhas, para o Windows"
  work=$(mktemp -d)
  mkdir -p "$work/lists/partial"
  # shellcheck disable=SC2016  # the format is apt's
  printf 'deb-src %s %s main\n' \
    "$(apt-get indextargets --format '$(SITE)' 'Identifier: Packages' 'Component: main' | head -n 1)" \
    "$(. /etc/os-release && echo "$VERSION_CODENAME")" >"$work/sources.list"
  (
    cd "$work"
    local options=(-o Dir::Etc::sourcelist="$work/sources.list" -o Dir::Etc::sourceparts=- -o Dir::State::Lists="$work/lists")
    as_root apt-get "${options[@]}" update
    as_root apt-get "${options[@]}" source --download-only libxlsxwriter
    mkdir source
    tar -xzf libxlsxwriter_*.orig.tar.gz -C source --strip-components=1
  ) >"$logs/libxlsxwriter.log" 2>&1 || true
  if [ -d "$work/source/src" ]; then
    as_root mkdir -p "$KODRA_CACHE"
    as_root cp -r "$work/source" "$folder"
  else
    echo "  não foi possível (veja $logs/libxlsxwriter.log): kodrarpt.exe fica sem planilhas"
  fi
  as_root rm -rf "$work"
}

# Configures and builds a preset: build_preset PRESET [TARGET…].
build_preset() {
  local preset=$1; shift
  step "compila: $preset"
  logged "cmake-$preset" cmake --preset "$preset"
  logged "ninja-$preset" ninja -C "build/$preset" -j "$jobs" "$@"
}

# The component and the DLLs that it needs in Wine: build_served [NATIVE TARGET beyond the tools of the demonstration…].
build_served() {
  setup
  build_preset win32 KodraRpt kodra_ado kodra_siblings_com
  build_preset native kodra-demo-data kodra-mariadb "$@"
}

build() { build_served kodrarpt; }
