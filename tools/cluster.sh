# The reports on a private cluster of MariaDB servers: the demonstration, and the tests in which nodes come and go.

# Runs a command as root, who may make a network: in a user namespace of its own when this user is another one.
with_network_rights() {
  if [ "$(id -u)" = 0 ]; then "$@"; else unshare --user --map-root-user --map-auto -- "$@"; fi
}

# Runs a command that starts a cluster, with the programs that a cluster needs in PATH.
with_cluster_programs() {
  local programs=$KODRA_CACHE/cluster/usr
  with_network_rights env PATH="$programs/bin:$programs/sbin:/usr/sbin:$PATH" "$@"
}

# Writes the rows of the 42 calls of the demonstration into a folder, from the server that kodra-mariadb has started
# around this script: each call by kodrarpt of a preset as CSV, and all by the script client and the component:
# cluster_rows FOLDER PRESET
cluster_rows() {
  local folder=$1 preset=$2 number=0 call arguments
  mkdir -p "$folder"
  KODRARPT_SENHA=${KODRA_MYSQL##*Pwd=}
  export KODRARPT_SENHA=${KODRARPT_SENHA%;}
  while IFS= read -r call; do
    number=$((number + 1))
    IFS=$'\t' read -ra arguments <<<"$call"
    "build/$preset/kodrarpt" executa "${arguments[@]}" --conexao "${KODRA_MYSQL%Pwd=*}" \
      --saida "$folder/$number.csv" </dev/null || die "kodrarpt executa ${arguments[*]}"
  done < <(awk -f testbed/archive/chamadas.awk testbed/archive/cliente.vbs)
  client KODRA_MYSQL testbed/archive/linhas.vbs >"$folder/componente.txt"
}

# The demonstration on a cluster, after the same calls on one server and there: show_cluster DOCUMENTS PRESET
show_cluster() {
  local folder=build/demo/cluster preset=$2 rows
  rm -rf "$folder"
  step "as chamadas em um MariaDB só, $1 documentos"
  "build/$preset/kodra-mariadb" build/demo/acervo.sql -- ./kodra rows "$folder/servidor" "$preset"
  step "as mesmas em um cluster próprio: três MariaDB com Galera, e HAProxy"
  with_cluster_programs "build/$preset/kodra-mariadb" --cluster build/demo/acervo.sql -- \
    ./kodra rows-shown "$folder/cluster" "$preset"
  diff -r "$folder/servidor" "$folder/cluster" >"$logs/cluster.diff" ||
    die "o cluster tem outras linhas que um servidor só: $logs/cluster.diff"
  rows=$(cat "$folder"/cluster/*.csv | wc -l)
  echo "no cluster, pelo console e pelo componente, as mesmas linhas que em um servidor só: $(find "$folder/cluster" \
    -name '*.csv' | wc -l) chamadas, $rows linhas de CSV."
}

# The tests, and the last line of the demonstration.
group_cluster() {
  local last
  build_preset sanitize kodra_test_cluster
  (cd tests && with_cluster_programs ../build/sanitize/tests/kodra_test_cluster) || failed cluster
  last=$(last_line_of_demo cluster)
  if [[ $last =~ as\ mesmas\ linhas\ .*:\ 42\ chamadas,\ [0-9]+\ linhas ]]; then
    passed demo.cluster
  else
    failed demo.cluster
    echo "a demonstração no cluster termina com: $last"
  fi
}
