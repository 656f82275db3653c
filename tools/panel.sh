# Tests the page of kodrarpt painel in a browser.

# Databases with texts that look like markup, with a thousand and with a million rows. The index has the order of the
# report.
panel_databases() {
  /usr/bin/python3 - "$1" <<'END'
import sqlite3, sys
def made(name, statement):
    database = sqlite3.connect(f'{sys.argv[1]}/{name}.db')
    database.execute('CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(100))')
    database.execute('CREATE INDEX IX_SUPORTE ON SUPORTE (DESCR_SUPORTE)')
    database.execute(statement)
    database.commit()
made('hostile', """INSERT INTO SUPORTE VALUES
    ('1', '<img src=x onerror="document.title=1"><script>document.title=2</script>'),
    ('2', 'a' || char(1) || char(27) || '[31m' || char(8232) || '&lt;')""")
for name, rows in ('few', 1000), ('many', 1000000):
    made(name, f"""INSERT INTO SUPORTE WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {rows})
        SELECT i, printf('Microfilme %08d', i) FROM n""")
END
}

# Runs a script of tests/panel with the program, the databases and a browser: with_panel SCRIPT
with_panel() {
  build_preset sanitize kodrarpt kodra-demo-data kodra-mariadb
  archive sanitize build/test/acervo.db 500
  made build/test/acervo.sql build/sanitize/kodra-demo-data mysql --documents 500
  local folder=$PWD/build/panel
  rm -rf "$folder"
  mkdir -p "$folder"
  panel_databases "$folder"
  # The browser's tests take the connection string of the private server from the environment.
  # shellcheck disable=SC2016
  build/sanitize/kodra-mariadb build/test/acervo.sql -- bash -c '
    exec /usr/bin/python3 "tests/panel/$3" "$PWD/build/sanitize/kodrarpt" "$1" "$2" \
      "sqlite=Driver={SQLite3};Database=$PWD/build/test/acervo.db" "mariadb=$KODRA_MYSQL" \
      "hostile=Driver={SQLite3};Database=$2/hostile.db" "few=Driver={SQLite3};Database=$2/few.db" \
      "many=Driver={SQLite3};Database=$2/many.db"' \
    bash "$KODRA_CACHE/$axe_core/axe.min.js" "$folder" "$1"
}

group_panel() {
  # Freed memory is reused at once, so that the tests see how much the program needs.
  export ASAN_OPTIONS=quarantine_size_mb=1
  with_panel run.py
}

# The pictures of the page in the guide.
pictures() {
  need test
  with_panel pictures.py
}
