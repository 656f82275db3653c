# Every statement of the reports on every engine that speaks its dialect, and the page with the results.

group_engines() {
  build_preset sanitize kodra_engines
  build/sanitize/tests/kodra_engines
}

dialects() {
  need test
  build_preset sanitize kodra_engines
  step "reescreve docs/dialects.md"
  logged dialects build/sanitize/tests/kodra_engines --write-page
}
