# The component with the compiler's checks and with guarded memory (tests/checked), in Wine.

# Each fault ends the process that commits it, in its own way: check_fault NAME EXIT CODE
check_fault() {
  local status=0
  wine_environment run wine build/win32-checked/tests/kodra_checked_faults.exe "$1" 2>>"$logs/wine.log" || status=$?
  if [ "$status" = "$2" ]; then
    passed "wine-checked.$1"
  else
    failed "wine-checked.$1"
    echo "o programa terminou com $status e não com $2"
  fi
}

# The exit codes are the last byte of Windows' own: C0000005 for an access to no memory, and C000001D for the instruction
# by which a check ends the process.
check_faults() {
  local access=5 check=29
  check_fault none 0
  check_fault overread "$access"
  check_fault overwrite "$access"
  check_fault underwrite "$check"
  check_fault use_after_free "$access"
  check_fault double_free "$access"
  check_fault wrong_size "$check"
  check_fault overflow "$check"
  check_fault null_reference "$check"
  check_fault wrong_index "$check"
}

# The linker's map names the objects that the DLL contains.
check_guarded() {
  if grep -q 'guarded_heap\.cpp\.obj' build/win32-checked/KodraRpt.map; then
    passed wine-checked.memory
  else
    failed wine-checked.memory
  fi
}

group_wine-checked() {
  local status=0
  # The excluded tests describe the files that are shipped.
  wine_tests win32-checked '--gtest_filter=-DllFile.*:ConsoleProgram.*' || status=$?
  check_guarded
  build_preset win32-checked kodra_checked_faults
  check_faults
  return "$status"
}
