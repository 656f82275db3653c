# Functions that every command uses.

jobs=$(nproc)
logs=build/log

step() { printf '\033[1m• %s\033[0m\n' "$*"; }
die() { printf 'kodra: %s\n' "$*" >&2; exit 1; }

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"
  elif command -v sudo >/dev/null; then sudo --preserve-env="$(compgen -e KODRA_ | paste -sd,)" "$@"
  else die "é preciso ser root ou ter sudo"; fi
}

# Runs a long command with its output in a log; shows the end of the log when it fails.
logged() {
  local log=$logs/$1.log; shift
  mkdir -p "$logs"
  "$@" >"$log" 2>&1 || { tail -n 40 "$log"; die "falhou: $* (saída inteira em $log)"; }
}

wine_environment() { as_root testbed/wine/environment "$@"; }
