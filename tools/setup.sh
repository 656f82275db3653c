# The packages of each command, and what else is installed once: the Wine environment and the source of a library.

build_packages=(
  g++ cmake ninja-build ccache make                                         # native build
  libgtest-dev libgmock-dev googletest libcli11-dev libsqlite3-dev          # libraries of tests and tools
  libfmt-dev libxlsxwriter-dev nlohmann-json3-dev libsimpleini-dev          # libraries of the console program
  libcpp-httplib-dev pkgconf                                                # and its server of a page
  libhpdf-dev libzint-dev libstb-dev fonts-liberation2                      # its pages: PDF, barcodes, images, letters
  unixodbc-dev odbcinst libsqliteodbc odbc-mariadb                          # ODBC and the drivers of the tests
  mariadb-server-core mariadb-client-core                                   # a private server, started by the tests
  g++-mingw-w64-i686-posix mingw-w64-tools libwine-dev libwine              # 32-bit Windows: compiler, widl, IDL files
  libz-mingw-w64-dev                                                        # for these libraries in Windows programs
  python3 unzip                                                             # the benchmarks of exports
  mmdebstrap arch-test debian-archive-keyring util-linux mount uidmap       # the Wine environment
)
package_packages=(wixl msitools zip lowdown g++-mingw-w64-x86-64-posix)
test_packages=(
  "${package_packages[@]}"
  clang libclang-rt-14-dev                                                  # native tests with their sanitizers
  clang-format shellcheck time faketime
  chromium poppler-utils zbar-tools                                         # pages shown, printed, and their barcodes read
  chromium-driver python3-selenium                                          # the page of kodrarpt painel in a browser
  wine64                                                                    # the component for 64-bit programs
  openjdk-17-jdk-headless libh2-java libhsqldb-java libderby-java           # the engines that imitate other databases
)
cluster_packages=(
  galera-4 rsync iproute2                                                   # equal nodes, and how one gets its files
  liblua5.3-0 libopentracing-c-wrapper0                                     # libraries of haproxy
)
fuzz_packages=(clang libclang-rt-14-dev)
lint_packages=(clang-tidy)
check_packages=(
  "${test_packages[@]}" "${cluster_packages[@]}" "${fuzz_packages[@]}" "${lint_packages[@]}"
  valgrind gcovr
)

# The packages of a command: packages_of build|package|cluster|test|fuzz|lint|check
packages_of() {
  printf '%s\n' "${build_packages[@]}"
  case $1 in
    build) ;;
    package) printf '%s\n' "${package_packages[@]}" ;;
    test) printf '%s\n' "${test_packages[@]}" ;;
    cluster) printf '%s\n' "${cluster_packages[@]}" ;;
    fuzz) printf '%s\n' "${fuzz_packages[@]}" ;;
    lint) printf '%s\n' "${lint_packages[@]}" ;;
    check) printf '%s\n' "${check_packages[@]}" | sort -u ;;
    *) die "setup não conhece \"$1\": build, package, cluster, test, fuzz, lint ou check" ;;
  esac
  # It fetches axe-core. Whoever has another Node.js than Debian's has npm with it.
  if needs_axe "$1" && ! command -v npm >/dev/null; then echo npm; fi
}

missing_packages() {
  local package packages
  packages=$(packages_of "$1") || exit
  for package in $packages; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || echo "$package"
  done
}

# What only some commands need besides packages: needs_sources COMMAND and so on
needs_sources() { case $1 in build | cluster | fuzz | lint) return 1 ;; esac; }
needs_cluster() { case $1 in cluster | check) ;; *) return 1 ;; esac; }
needs_axe() { case $1 in test | check) ;; *) return 1 ;; esac; }

# The checks of accessibility that the page's tests use: a folder of the cache, and the sum of its package.
axe_core=axe-core-4.10.3
axe_core_sum=0f2b4d7dcdf7d1219df8d1959ad68e565f51d14c3f0d88bb71cd59abeb956292

# Fills the cache with it.
fetch_axe() {
  local folder=$KODRA_CACHE/$axe_core work status=0
  [ ! -f "$folder/axe.min.js" ] || return 0
  step "busca o $axe_core, que confere se as páginas servem a todos"
  mkdir -p "$KODRA_CACHE" "$logs"
  work=$(mktemp -d "$KODRA_CACHE/sources.XXXXXX")
  (
    cd "$work" && npm pack --silent "${axe_core%-*}@${axe_core##*-}" &&
      sha256sum --check - <<<"$axe_core_sum  $axe_core.tgz" && tar -xf "$axe_core.tgz"
  ) >"$logs/axe-core.log" 2>&1 || status=$?
  # Another checkout may have been faster.
  if [ "$status" = 0 ]; then mv -T "$work/package" "$folder" 2>/dev/null || [ -d "$folder" ]; fi
  rm -rf "$work"
  # Only the tests of accessibility fail without it.
  [ "$status" = 0 ] || step "não foi possível buscar o $axe_core (saída inteira em $logs/axe-core.log)" >&2
}

# Installs what a command needs and is missing: setup [build|package|cluster|test|fuzz|lint|check]
setup() {
  local command=${1:-test} names missing
  names=$(missing_packages "$command") || exit
  mapfile -t missing < <(printf %s "$names")
  if [ ${#missing[@]} -gt 0 ]; then
    step "instala ${#missing[@]} pacotes: ${missing[*]}"
    # An interrupted installation is finished first; there is none as a rule.
    logged dpkg-configure as_root dpkg --configure -a
    logged apt-update as_root apt-get update
    logged apt-install as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
  fi
  wine_environment make
  if needs_sources "$command"; then windows_sources; fi
  if needs_cluster "$command"; then cluster_programs; fi
  if needs_axe "$command"; then fetch_axe; fi
}

# Ends with a message when something that a command needs is missing: need COMMAND
need() {
  local names missing
  names=$(missing_packages "$1")
  mapfile -t missing < <(printf %s "$names")
  [ ${#missing[@]} = 0 ] || die "faltam pacotes: ${missing[*]}
  para instalar tudo o que falta: ./kodra setup $1"
  wine_environment ready || die "falta o ambiente do Wine em $KODRA_CACHE
  para prepará-lo: ./kodra setup $1"
  local missing_sources
  missing_sources=$(missing_windows_sources)
  if needs_sources "$1" && [ "$missing_sources" ]; then
    die "falta o código de bibliotecas em $KODRA_CACHE: ${missing_sources//$'\n'/ }
  para buscá-lo: ./kodra setup $1"
  fi
  if needs_cluster "$1" && ! has_cluster_programs; then
    die "faltam os programas do cluster em $KODRA_CACHE
  para buscá-los: ./kodra setup $1"
  fi
}

has_cluster_programs() { [ -x "$KODRA_CACHE/cluster/usr/sbin/haproxy" ] && [ -x "$KODRA_CACHE/cluster/usr/bin/wsrep_sst_rsync" ]; }

# The programs of a cluster that are taken out of their packages, because installing these would make services that start
# with the machine: the balancer, and the scripts by which a node sends its files to another.
cluster_programs() {
  local folder=$KODRA_CACHE/cluster work package
  has_cluster_programs && return
  step "busca os programas do cluster: haproxy e mariadb-server"
  mkdir -p "$KODRA_CACHE"
  work=$(mktemp -d "$KODRA_CACHE/cluster.XXXXXX")
  chmod 755 "$work"
  logged cluster-programs env -C "$work" apt-get download haproxy mariadb-server
  for package in "$work"/*.deb; do dpkg-deb -x "$package" "$work"; done
  rm -rf "$work"/*.deb "$folder"
  mv -T "$work" "$folder"
}

# The libraries of the console program that Debian builds only for Debian, as source, for Windows: the name of each
# source package and a file that it contains. The cache contains a folder for each.
declare -A windows_libraries=(
  [libxlsxwriter]=src/workbook.c [libharu]=src/hpdf_doc.c [zint]=backend/library.c
  [cpp-httplib]=httplib.h
)

missing_windows_sources() {
  local package
  for package in "${!windows_libraries[@]}"; do
    [ -f "$KODRA_CACHE/$package/${windows_libraries[$package]}" ] || echo "$package"
  done | sort
}

# Fills the cache with the sources that are missing, from Debian's own source packages, whose signature apt checks.
windows_sources() {
  local package folder work status packages
  packages=$(missing_windows_sources)
  for package in $packages; do
    folder=$KODRA_CACHE/$package
    rm -rf "$folder"
    step "busca o código de $package, para o Windows"
    mkdir -p "$KODRA_CACHE" "$logs"
    work=$(mktemp -d "$KODRA_CACHE/sources.XXXXXX")
    mkdir -p "$work/lists/partial" "$work/cache/archives/partial"
    # shellcheck disable=SC2016  # the format is apt's
    printf 'deb-src %s %s main\n' \
      "$(apt-get indextargets --format '$(SITE)' 'Identifier: Packages' 'Component: main' | head -n 1)" \
      "$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)" >"$work/sources.list"
    status=0
    (
      cd "$work"
      options=(-o Dir::Etc::sourcelist="$work/sources.list" -o Dir::Etc::sourceparts=- -o Dir::State::Lists="$work/lists"
        -o Dir::Cache="$work/cache" -o APT::Sandbox::User=root)
      apt-get "${options[@]}" update
      apt-get "${options[@]}" source --download-only --tar-only "$package"
      mkdir source
      tar -xf "$package"_*.orig.tar.* -C source --strip-components=1
      [ -f "source/${windows_libraries[$package]}" ]
    ) >"$logs/$package.log" 2>&1 || status=$?
    # Another checkout may have been faster.
    if [ "$status" = 0 ] && [ ! -d "$folder" ]; then mv -T "$work/source" "$folder" 2>/dev/null || [ -d "$folder" ]; fi
    rm -rf "$work"
    [ "$status" = 0 ] || { tail -n 20 "$logs/$package.log"
      die "não foi possível buscar o código de $package (saída inteira em $logs/$package.log)"; }
  done
}
