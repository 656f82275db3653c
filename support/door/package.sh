# Installation: its tests in Wine.

test_groups+=(package)

# The tests of installation have a Wine prefix of their own in the box: a Windows that never saw the component.
prefix=/root/.wine-package
in_prefix() { box run env WINEPREFIX=$prefix "$@"; }

# Makes the prefix once; afterwards gives it back its first registry and takes away what an interrupted run left.
fresh_prefix() {
  # shellcheck disable=SC2016  # the box's own shell expands it
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

test_package() {
  build_preset win32 KodraRpt kodra_test_package
  step "testes de instalação no Wine, sem o componente registrado"
  local status=0 log=$logs/test-package.log
  lock_box
  logged wine-package fresh_prefix
  export KODRA_BIN
  KODRA_BIN=$(windows_path build/win32)
  in_prefix wine build/win32/tests/kodra_test_package.exe >"$log" 2>&1 </dev/null || status=$?
  tr -d '\r' <"$log" >"$log.txt"
  count package "$log.txt" "$status"
}
