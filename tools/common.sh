# Functions that every command uses.

jobs=$(nproc)
logs=build/log

step() { printf '\033[1m• %s\033[0m\n' "$*"; }
die() { printf 'kodra: %s\n' "$*" >&2; exit 1; }

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"
  elif command -v sudo >/dev/null; then sudo "$@"
  else die "para instalar pacotes é preciso ser root ou ter sudo"; fi
}

# Runs a long command with its output in a log; shows the end of the log when it fails.
logged() {
  local log=$logs/$1.log; shift
  mkdir -p "$logs"
  "$@" >"$log" 2>&1 </dev/null || { tail -n 40 "$log"; die "falhou: $* (saída inteira em $log)"; }
}

# Makes a file by a command that takes its name as the last argument. An interrupted run leaves no half of it under that
# name: made FILE COMMAND…
made() {
  local file=$1; shift
  mkdir -p "$(dirname "$file")"
  rm -f "$file.new"
  logged "$(basename "$file")" "$@" "$file.new"
  mv "$file.new" "$file"
}

wine_environment() { testbed/wine/environment "$@"; }
