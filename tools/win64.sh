# The component for 64-bit programs, and its tests in the machine's own 64-bit Wine.

test_packages+=(g++-mingw-w64-x86-64-posix wine64)
test_groups+=(win64)

# Runs a program in a 64-bit Wine prefix beside the 32-bit environment, with the variables KODRA_… of the environment.
wine64() {
  local name variables=()
  for name in "${!KODRA_@}"; do variables+=("$name=${!name}"); done
  as_root env -i PATH=/usr/bin:/bin HOME=/root LANG=C.UTF-8 WINEARCH=win64 WINEDEBUG=-all \
    WINEDLLOVERRIDES="mscoree,mshtml=" WINEPREFIX="$KODRA_CACHE/wine64" "${variables[@]}" /usr/lib/wine/wine64 "$@"
}

ready_wine64() { [ -e "$KODRA_CACHE/wine64/system.reg" ] || logged wine64-prefix wine64 wineboot -i; }

test_win64() {
  build_preset win64 KodraRpt kodra_test_wine
  step "testes do componente de 64 bits, num Wine de 64 bits"
  local status=0 log=$PWD/$logs/test-win64.log
  lock_wine
  ready_wine64
  export KODRA_BIN
  KODRA_BIN=$(windows_path build/win64)
  wine64 regsvr32 /s "$KODRA_BIN\\KodraRpt.dll" >"$log" 2>&1 || die "não foi possível registrar o componente (veja $log)"
  # The excluded test opens a database.
  wine64 build/win64/tests/kodra_test_wine.exe --gtest_filter=-ReportObjects.AnArgumentGivenByNameReachesTheMethod \
    >"$log" 2>&1 </dev/null || status=$?
  # The component must not stay registered: other tests use it unregistered.
  wine64 regsvr32 /s /u "$KODRA_BIN\\KodraRpt.dll" >>"$log" 2>&1 || die "não foi possível retirar o registro (veja $log)"
  tr -d '\r' <"$log" >"$log.txt"
  count win64 "$log.txt" "$status"
}
