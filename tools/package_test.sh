# The tests of the packages, in Wine.

# The tests of installation have a Wine prefix of their own: a Windows that never contained the component.
prefix=/root/.wine-package
in_prefix() { wine_environment run env WINEPREFIX="$prefix" "$@"; }

# Makes the prefix once; afterwards restores its first registry and deletes what an interrupted run left.
fresh_prefix() {
  # shellcheck disable=SC2016  # the environment's own shell expands it
  in_prefix sh -ec '
    first=$WINEPREFIX/kodra-first
    if [ ! -e "$first/system.reg" ]; then
      rm -rf "$WINEPREFIX"
      wine wineboot -i
      wineserver -w
      mkdir "$first.new"
      cp "$WINEPREFIX"/*.reg "$first.new"
      mv "$first.new" "$first"
    fi
    wineserver -k || true
    cp "$first"/*.reg "$WINEPREFIX"
    rm -rf "$WINEPREFIX/drive_c/Program Files/KodraRpt" "$WINEPREFIX"/drive_c/windows/Installer/*'
}

# Two packages of the same build, made in different folders, on different days and by users with different settings,
# must be the same bytes: check_reproducible VERSION
check_reproducible() {
  local other=build/package/again file
  mkdir -p "$other"
  (umask 077; TZ=America/Sao_Paulo LC_ALL=C faketime -f +400d ./kodra pack "$other")
  for file in "KodraRpt-$1".{zip,msi}; do
    if cmp "build/package/$file" "$other/$file"; then
      passed "package.the same ${file##*.}"
    else
      failed "package.the same ${file##*.}"
      echo "$file não é idêntico nos dois pacotes"
    fi
  done
}

# Everything that the linker took from the system is code of a Debian package whose licence is in the list beside the
# file: check_licences MAP FILE
check_licences() {
  local map=$1 file=$2 archive package missing=()
  while read -r archive; do
    package=$(dpkg -S "$archive")
    package=$(dpkg-query -W -f '(${source:Package} ${Version}) ====' "${package%%:*}")
    iconv -f CP1252 -t UTF-8 "$file" | tr -d '\r' | grep -F -- "$package" >/dev/null || missing+=("$archive: $package")
  done < <(grep -oE '/usr/[^ ()]+\.(a|o)\>' "$map" | xargs readlink -f | sort -u)
  [ ${#missing[@]} = 0 ] && { passed "package.licences of ${map##*/}"; return; }
  failed "package.licences of ${map##*/}"
  printf 'falta uma licença: %s\n' "${missing[@]}"
}

# Without the sources of its libraries no package is made, and everything but kodrarpt.exe is built; both say
# what is missing and how to get it.
check_missing_source() {
  local cache=$PWD/build/package/cache tree=build/package/without-source missing output
  missing="falta o código de bibliotecas em $cache: cpp-httplib libharu libxlsxwriter zint"
  rm -rf "$cache" "$tree"
  mkdir -p "$cache"
  ln -s "$KODRA_CACHE/wine32" "$cache/wine32"
  if output=$(KODRA_CACHE=$cache ./kodra package 2>&1); then output="sem erro: $output"; fi
  if [ "$output" = "kodra: $missing
  para buscá-lo: ./kodra setup package" ]; then
    passed "package.without the libraries' sources there is none"
  else
    failed "package.without the libraries' sources there is none"
    echo "$output"
  fi
  missing="kodrarpt.exe não será compilado: falta $cache/libxlsxwriter/src/workbook.c. Para buscá-lo: ./kodra setup package"
  # CMake breaks its messages into lines.
  if output=$(KODRA_CACHE=$cache cmake --preset win32 -B "$tree" 2>&1 | tr -s '\n ' ' ') && [[ $output == *"$missing"* ]] &&
    output=$(ninja -C "$tree" -t targets all) && grep -q '^KodraRpt.dll: ' <<<"$output" &&
    ! grep -q kodrarpt.exe <<<"$output"; then
    passed "package.without the libraries' sources the rest is built"
  else
    failed "package.without the libraries' sources the rest is built"
    tail -n 20 <<<"$output"
  fi
  rm -rf "$cache" "$tree"
}

group_package() {
  check_missing_source
  build_package
  build_preset win32 kodra_test_package kodra_ado kodra_siblings_com
  build_preset win64 kodra_test_package
  build_preset sanitize kodra-demo-data
  archive sanitize build/test/acervo.db 500
  local packages=$PWD/build/package status=0 version later
  version=$(version_part MAJOR).$(version_part MINOR).$(version_part REVISION)
  check_reproducible "$version"
  rm -rf build/package/unpacked build/package/later
  unzip -q "build/package/KodraRpt-$version.zip" -d build/package/unpacked
  check_licences build/win32/KodraRpt.map "build/package/unpacked/KodraRpt-$version/LICENCAS.txt"
  check_licences build/win64/KodraRpt.map "build/package/unpacked/KodraRpt-$version/x64/LICENCAS.txt"
  check_licences build/win32/console/kodrarpt.map "build/package/unpacked/KodraRpt-$version/console/LICENCAS.txt"
  check_licences build/win64/console/kodrarpt.map "build/package/unpacked/KodraRpt-$version/x64/console/LICENCAS.txt"
  mkdir -p build/package/later
  logged later-msi ./kodra pack-later build/package/later
  later=("$packages"/later/*.msi)
  lock_wine
  logged wine-package fresh_prefix
  KODRA_UNPACKED=$packages/unpacked/KodraRpt-$version KODRA_MSI=$packages/KodraRpt-$version.msi \
    KODRA_LATER_MSI=${later[0]} KODRA_ARCHIVE=$PWD/build/test/acervo.db KODRA_BIN=$PWD/build/win32 \
    in_wine_form in_prefix wine build/win32/tests/kodra_test_package.exe || status=$?
  ready_wine64
  # An interrupted run of the other 64-bit tests leaves the component registered.
  wine64 regsvr32 /s /u "$(windows_path build/win64)\\KodraRpt.dll" >"$logs/unregister-64.log" 2>&1 || true
  # What the packages have for 64-bit programs. The script client itself needs the ADO of the 32-bit Wine environment.
  KODRA_UNPACKED=$packages/unpacked/KodraRpt-$version/x64 KODRA_MSI=$packages/KodraRpt-$version.msi \
    in_wine_form wine64 build/win64/tests/kodra_test_package.exe '--gtest_filter=-*.TheScriptClient*' || status=$?
  return "$status"
}
