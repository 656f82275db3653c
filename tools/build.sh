# Builds.

# Configures and builds a preset: build_preset PRESET [TARGET…].
build_preset() {
  local preset=$1; shift
  step "compila: $preset"
  logged "cmake-$preset" cmake --preset "$preset"
  logged "ninja-$preset" ninja -C "build/$preset" -j "$jobs" "$@"
}

# The component and the DLLs that it needs in Wine: build_served [NATIVE TARGET beyond the tools of the demonstration…].
build_served() {
  build_preset win32 KodraRpt kodra_ado kodra_siblings_com
  build_preset native kodra-demo-data kodra-mariadb "$@"
}

build() {
  need build
  build_served kodrarpt
}
