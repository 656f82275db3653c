# Every statement of the reports on every engine that speaks its dialect, and the page with the results.

test_packages+=(openjdk-17-jdk-headless libh2-java libhsqldb-java libderby-java)
test_groups+=(engines)

test_engines() {
  build_preset sanitize kodra_engines
  step "cada instrução dos relatórios em cada banco: MariaDB, SQLite, H2, HSQLDB e Derby"
  local status=0 log=$logs/test-engines.log
  build/sanitize/tests/kodra_engines >"$log" 2>&1 </dev/null || status=$?
  count engines "$log" "$status"
}

dialects() {
  setup "${test_packages[@]}"
  build_preset sanitize kodra_engines
  step "reescreve docs/dialects.md"
  logged dialects build/sanitize/tests/kodra_engines --write-page
}
