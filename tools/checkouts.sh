# Tests of the scripts themselves: what they leave when something goes wrong, and checkouts that are not as usual.

# What is made appears whole or not at all.
check_made() {
  local work file right=1
  work=$(mktemp -d)
  file=$work/arquivo
  # shellcheck disable=SC2016  # the shell that is started expands it
  (made "$file" sh -c 'echo metade >"$1"; exit 3' sh) >"$work/said" 2>&1 && right=
  [ ! -e "$file" ] && grep -q '^kodra: falhou: ' "$work/said" || right=
  # shellcheck disable=SC2016
  (made "$file" sh -c 'echo inteiro >"$1"' sh) >"$work/said" 2>&1 || right=
  [ "$(cat "$file")" = inteiro ] || right=
  if [ "$right" ]; then passed scripts.made; else failed scripts.made; fi
  rm -rf "$work"
}

# A command that fails ends its group, and a group that ends with an error has failed although it names no test, and also
# when CTest could not run it.
check_failing_groups() {
  local work right=1
  work=$(mktemp -d)
  (
    group_of_failures() { passed first; false; passed second; }
    export -f group_of_failures
    tools/group of_failures
  ) >"$work/said" 2>&1 && right=
  [ "$(cat "$work/said")" = "$(passed first)" ] || right=
  (
    start_counting
    passed first >"$work/group.log"
    : >"$work/empty.log"
    count group "$work/group.log" 1
    count empty "$work/empty.log" 1
    report_count
  ) >"$work/said" 2>&1 && right=
  grep -qx '1 passed, 2 failed' "$work/said" || right=
  if [ "$right" ]; then passed scripts.failing_groups; else failed scripts.failing_groups; cat "$work/said"; fi
  rm -rf "$work"
}

# A full disk is named, and no part of a file stays.
check_full_disk() {
  local work right=1
  work=$(mktemp -d)
  # shellcheck disable=SC2016
  unshare --map-root-user --mount bash -c '
    mount -t tmpfs -o size=64k tmpfs "$1"
    . tools/all.sh
    logs=$2
    (made "$1/arquivo" sh -c "head -c 1000000 /dev/zero >\"\$1\"" sh) && exit 1
    [ ! -e "$1/arquivo" ]' bash "$work" "$PWD/$logs" >"$logs/full-disk.log" 2>&1 || right=
  grep -q 'No space left on device' "$logs/full-disk.log" || right=
  if [ "$right" ]; then passed scripts.full_disk; else failed scripts.full_disk; cat "$logs/full-disk.log"; fi
  rm -rf "$work"
}

# The sources of libraries are fetched again after an unpacking that was killed, and by two checkouts that fill the same
# cache at once. Functions take the places of apt-get and tar.
check_fetched_sources() {
  local work right=1 package one two
  work=$(mktemp -d)
  apt-get() { if [[ " $* " == *" source "* ]]; then : >"${package}_1.orig.tar.gz"; fi; }
  tar() {
    sleep 0.2
    mkdir -p "source/$(dirname "${windows_libraries[$package]}")"
    : >"source/${windows_libraries[$package]}"
  }
  fetch() { KODRA_CACHE=$work/cache windows_sources; }
  (tar() { mkdir source; kill -KILL "$BASHPID"; }; fetch) >"$work/killed" 2>&1 && right=
  grep -q '^kodra: não foi possível buscar o código de ' "$work/killed" || right=
  (apt-get() { return 100; }; tar() { return 2; }; fetch) >"$work/refused" 2>&1 && right=
  grep -q '^kodra: não foi possível buscar o código de ' "$work/refused" || right=
  fetch >"$work/one" 2>&1 & one=$!
  fetch >"$work/two" 2>&1 & two=$!
  wait "$one" || right=
  wait "$two" || right=
  [ -z "$(KODRA_CACHE=$work/cache missing_windows_sources)" ] || right=
  # Nothing else stays in the cache.
  [ "$(find "$work/cache" -mindepth 1 -maxdepth 1 | wc -l)" = "${#windows_libraries[@]}" ] || right=
  unset -f apt-get tar fetch
  if [ "$right" ]; then passed scripts.sources; else failed scripts.sources; cat "$work"/{killed,refused,one,two}; fi
  rm -rf "$work"
}

# Checkouts share the temporary folder, so no script names a file there. The Wine environment has one of its own.
check_temporary_names() {
  local named
  named=$(git grep -nE '/tmp/|TMPDIR' -- kodra .ci tools '*.sh' packaging ':!tools/checkouts.sh' || true)
  if [ -z "$named" ]; then
    passed scripts.temporary_names
  else
    failed scripts.temporary_names
    printf 'um nome fixo na pasta temporária: %s\n' "$named"
  fi
}

# A machine that has all that it needs asks no network for anything.
check_without_network() {
  if unshare --map-root-user --net env KODRA_CACHE="$KODRA_CACHE" ./kodra setup test >"$logs/without-network.log" 2>&1
  then
    passed scripts.without_network
  else
    failed scripts.without_network
    cat "$logs/without-network.log"
  fi
}

# Runs a command in a folder as a user without rights: unprivileged FOLDER COMMAND…
unprivileged() {
  local folder=$1 user=(env)
  shift
  [ "$(id -u)" != 0 ] || user=(setpriv --reuid=65534 --regid=65534 --clear-groups env)
  (cd "$folder" && "${user[@]}" -u KODRA_CACHE HOME="$folder" XDG_CACHE_HOME="$folder/.cache" "$@")
}

# A command in another checkout as a test: in_checkout NAME COMMAND…
in_checkout() {
  local name=$1 log=$logs/checkout-$1.log
  shift
  if "$@" >"$log" 2>&1 </dev/null; then
    passed "checkouts.$name"
  else
    failed "checkouts.$name"
    tail -n 20 "$log"
  fi
}

# A command that lacks something ends with this message: check_refusal NAME MESSAGE COMMAND…
check_refusal() {
  local name=$1 expected=$2 refusal
  shift 2
  refusal=$("$@" 2>&1) || true
  if [ "$refusal" = "$expected" ]; then
    passed "checkouts.names_what_is_missing.$name"
  else
    failed "checkouts.names_what_is_missing.$name"
    echo "$refusal"
  fi
}

# A folder whose name has a blank, without a network; and a user without rights or environment for Wine.
group_checkouts() {
  local work folder file
  work=$(mktemp -d)
  chmod 755 "$work"
  folder="$work/duas palavras"
  git clone -q . "$folder"
  # shellcheck disable=SC2016
  in_checkout with_blanks unshare --map-root-user --net env KODRA_CACHE="$KODRA_CACHE" sh -c '
    ip link set lo up && cd "$1" && ./kodra demo --documents 50 && ./kodra test format docs examples' sh "$folder"
  rm -rf "$folder/build"
  [ "$(id -u)" != 0 ] || chown -R 65534:65534 "$folder"
  in_checkout with_plain_cmake unprivileged "$folder" sh -c '
    cmake --preset sanitize && cmake --build --preset sanitize --target kodra_test_values &&
      ctest --preset sanitize -R "^values[.]"'
  check_refusal build "kodra: falta o ambiente do Wine em $folder/.cache/kodra
  para prepará-lo: ./kodra setup build" unprivileged "$folder" ./kodra build
  mkdir "$work/cache"
  for file in wine32 "${!windows_libraries[@]}"; do
    ln -s "$KODRA_CACHE/$file" "$work/cache"
  done
  check_refusal check "kodra: faltam os programas do cluster em $work/cache
  para buscá-los: ./kodra setup check" env KODRA_CACHE="$work/cache" ./kodra check
  rm -rf "$work"
}
