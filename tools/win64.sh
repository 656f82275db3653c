# The component for 64-bit programs, and its tests in the machine's own 64-bit Wine.

# Runs a program in a 64-bit Wine prefix beside the 32-bit environment, with the variables KODRA_… of the environment.
wine64() {
  local name variables=()
  for name in "${!KODRA_@}"; do variables+=("$name=${!name}"); done
  env -i PATH=/usr/bin:/bin HOME="$HOME" LANG=C.UTF-8 WINEARCH=win64 WINEDEBUG=-all \
    WINEDLLOVERRIDES="mscoree,mshtml=" WINEPREFIX="$KODRA_CACHE/wine64" "${variables[@]}" /usr/lib/wine/wine64 "$@"
}

# Makes the prefix; one that an interrupted run left half made is made again.
ready_wine64() {
  local prefix=$KODRA_CACHE/wine64
  [ ! -e "$prefix/kodra-ready" ] || return 0
  rm -rf "$prefix"
  logged wine64-prefix wine64 wineboot -i
  touch "$prefix/kodra-ready"
}

group_win64() {
  build_preset win64 KodraRpt kodra_test_wine
  local status=0
  lock_wine
  ready_wine64
  export KODRA_BIN
  KODRA_BIN=$(windows_path build/win64)
  logged register-64 wine64 regsvr32 /s "$KODRA_BIN\\KodraRpt.dll"
  # The excluded test opens a database.
  in_wine_form wine64 build/win64/tests/kodra_test_wine.exe \
    --gtest_filter=-ReportObjects.AnArgumentGivenByNameReachesTheMethod || status=$?
  # The component must not stay registered: other tests use it unregistered.
  logged unregister-64 wine64 regsvr32 /s /u "$KODRA_BIN\\KodraRpt.dll"
  return "$status"
}
