# Completa os comandos de kodrarpt no bash: source kodrarpt.bash. Feito por ./kodra reference.

_kodrarpt() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command=${COMP_WORDS[1]}
  local reports='CCDRpt.RelatorioMidias CTipo_MidiaRpt.RelatorioTiposMidia CSuporteRpt.RelatorioSuportes CSerieRpt.RelatorioSeries CDepositoRpt.RelatorioDepositos CDicionarioRpt.RelatorioTermosControlados CDeptoRpt.RelatorioDeptos CGrupoRpt.RelatorioGrupos CModeloRpt.RelatorioModelos CTipo_CaixaRpt.RelatorioTiposModulo CGrupoOperadorRpt.RelatorioGruposOperadores CSubgrupoRpt.RelatorioSubgrupos COperadorRpt.RelatorioOperadores CDocumentoRpt.RelatorioSintetico CDocumentoRpt.RelatorioAnalitico CDocumentoRpt.RelatorioInventarios CSolicitacaoRpt.RelatorioRetiradaOriginal CSolicitacaoRpt.RelatorioDevolucaoOriginal CLogRpt.RelatorioLog CCaixaRpt.EtiquetaAbertura CCaixaRpt.EtiquetaFechamento CCaixaRpt.EtiquetaFechamentoSubordinada CCaixaRpt.EtiquetaDivisoria CCaixaRpt.ModulosExcluidos CCaixaRpt.ModulosVencidos CCaixaRpt.DocsNoModulo CCaixaRpt.DocsNoModuloSubRpt CCaixaRpt.DocsNaoIndexadosNosModulos CCaixaRpt.RelatoriosModulos CCaixaRpt.AutorizacaoDescarteModuloSubRpt CContainerRpt.RelatorioContainers CContainerRpt.EtiquetaAbertura CContainerRpt.EtiquetaAberturaSubRpt CEstatImgRpt.RelatorioEstatisticas CEstatIndexRpt.RelatorioEstatisticasPorDocumento CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave CEstatSuporteRpt.RelatorioEstatisticas CEstatSubgrupoRpt.RelatorioEstatisticas CEstatSerieRpt.RelatorioEstatisticas'
  local words='' options='' arguments='' fileArguments='' hasParameters='' files=''
  COMPREPLY=()
  if [ "$COMP_CWORD" = 1 ]; then
    words='lista descreve executa etiquetas sql papel confere verifica esquema perfil rotina painel ajuda --help --version'
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    return
  fi
  case $command in
    lista)
      options='--help --json'
      ;;
    descreve)
      options='--help --json'
      arguments=$reports
      ;;
    executa)
      options='--help --conexao --perfil --senha-de --pergunta-senha --detalhes --formato --saida --separador --bom --excel --json-linhas --titulos --colunas --limite --orgao --logotipo --folha --primeira --copias --codigo --tempo-limite --progresso --literal'
      arguments=$reports
      hasParameters=1
      ;;
    etiquetas)
      options='--help --de --ate --CodDepto --lista --conexao --perfil --senha-de --pergunta-senha --detalhes --tempo-limite --formato --saida --folha --primeira --copias --codigo --folha-propria --folhas-de --ajuste --contorno --logotipo --folhas --com-lugar --orgao'
      arguments='abertura fechamento subordinadas divisoria conteiner'
      ;;
    sql)
      options='--help --banco --bonito --detalhes --literal'
      arguments=$reports
      hasParameters=1
      ;;
    papel)
      options='--help --conexao --perfil --senha-de --pergunta-senha --detalhes --formato --saida --orgao --logotipo --tempo-limite --literal'
      arguments='retirada originais descarte modulo'
      hasParameters=1
      ;;
    confere)
      options='--help --modulo --conteiner --lista --conexao --perfil --senha-de --pergunta-senha --detalhes --formato --saida --separador --bom --excel --json-linhas --titulos --colunas --limite --orgao --logotipo --tempo-limite'
      ;;
    verifica)
      options='--help --conexao --perfil --senha-de --pergunta-senha --detalhes --tempo-limite --json'
      ;;
    esquema)
      options='--help --banco --indices --permissoes'
      arguments=$reports
      ;;
    perfil)
      options='--help --conexao --senha-de --senha-comando --pergunta-senha --substitui --detalhes'
      arguments='novo lista testa remove'
      ;;
    rotina)
      options='--help --conexao --perfil --senha-de --pergunta-senha --detalhes --simula --agendar --as --dias'
      fileArguments=1
      ;;
    painel)
      options='--help --conexao --perfil --senha-de --pergunta-senha --detalhes --porta --sem-navegador --ocioso --tempo-limite'
      ;;
  esac
  case "$command $previous" in
    'executa --conexao') ;;
    'executa --perfil') words=$(_kodrarpt_profiles) ;;
    'executa --senha-de') ;;
    'executa --formato') words='tabela csv json xlsx html pdf' ;;
    'executa --saida') files=1 ;;
    'executa --separador') ;;
    'executa --colunas') ;;
    'executa --limite') ;;
    'executa --orgao') ;;
    'executa --logotipo') files=1 ;;
    'executa --folha') ;;
    'executa --primeira') ;;
    'executa --copias') ;;
    'executa --codigo') words='code128 qr nenhum' ;;
    'executa --tempo-limite') ;;
    'executa --progresso') words='sempre nunca auto' ;;
    'etiquetas --de') ;;
    'etiquetas --ate') ;;
    'etiquetas --CodDepto') ;;
    'etiquetas --lista') files=1 ;;
    'etiquetas --conexao') ;;
    'etiquetas --perfil') words=$(_kodrarpt_profiles) ;;
    'etiquetas --senha-de') ;;
    'etiquetas --tempo-limite') ;;
    'etiquetas --formato') words='pdf html' ;;
    'etiquetas --saida') files=1 ;;
    'etiquetas --folha') ;;
    'etiquetas --primeira') ;;
    'etiquetas --copias') ;;
    'etiquetas --codigo') words='code128 qr nenhum' ;;
    'etiquetas --folha-propria') ;;
    'etiquetas --folhas-de') files=1 ;;
    'etiquetas --ajuste') ;;
    'etiquetas --logotipo') files=1 ;;
    'etiquetas --orgao') ;;
    'sql --banco') words='oracle sqlserver mysql db2 sqlite todos' ;;
    'papel --conexao') ;;
    'papel --perfil') words=$(_kodrarpt_profiles) ;;
    'papel --senha-de') ;;
    'papel --formato') words='pdf html' ;;
    'papel --saida') files=1 ;;
    'papel --orgao') ;;
    'papel --logotipo') files=1 ;;
    'papel --tempo-limite') ;;
    'confere --modulo') ;;
    'confere --conteiner') ;;
    'confere --lista') files=1 ;;
    'confere --conexao') ;;
    'confere --perfil') words=$(_kodrarpt_profiles) ;;
    'confere --senha-de') ;;
    'confere --formato') words='tabela csv json xlsx html pdf' ;;
    'confere --saida') files=1 ;;
    'confere --separador') ;;
    'confere --colunas') ;;
    'confere --limite') ;;
    'confere --orgao') ;;
    'confere --logotipo') files=1 ;;
    'confere --tempo-limite') ;;
    'verifica --conexao') ;;
    'verifica --perfil') words=$(_kodrarpt_profiles) ;;
    'verifica --senha-de') ;;
    'verifica --tempo-limite') ;;
    'esquema --banco') words='oracle sqlserver mysql db2 sqlite todos' ;;
    'esquema --permissoes') ;;
    'perfil --conexao') ;;
    'perfil --senha-de') ;;
    'perfil --senha-comando') ;;
    'rotina --conexao') ;;
    'rotina --perfil') words=$(_kodrarpt_profiles) ;;
    'rotina --senha-de') ;;
    'rotina --as') ;;
    'rotina --dias') ;;
    'painel --conexao') ;;
    'painel --perfil') words=$(_kodrarpt_profiles) ;;
    'painel --senha-de') ;;
    'painel --porta') ;;
    'painel --ocioso') ;;
    'painel --tempo-limite') ;;
    'perfil testa' | 'perfil remove') words=$(_kodrarpt_profiles) ;;
    *' --'[A-Z]*) ;;
    *)
      case $word in
        -*) words=$options$(_kodrarpt_parameters "$hasParameters" "${COMP_WORDS[2]}") ;;
        *) words=$arguments files=$fileArguments ;;
      esac
      ;;
  esac
  if [ -n "$files" ]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  else
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
  fi
}

# Os perfis do usuário.
_kodrarpt_profiles() {
  sed -n 's/^[[:blank:]]*\[\([^]]*\)\].*/\1/p' "${XDG_CONFIG_HOME:-$HOME/.config}/kodrarpt/perfis.ini" 2>/dev/null
}

# Os parâmetros do relatório que o segundo argumento nomeia, se o comando aceita parâmetros.
_kodrarpt_parameters() {
  local words=''
  [ -n "$1" ] || return
  case $2 in
    CCDRpt*) words='--Owner --TipoRpt' ;;
    CTipo_MidiaRpt*) words='--Owner' ;;
    CSuporteRpt*) words='--Owner' ;;
    CSerieRpt*) words='--Owner' ;;
    CDepositoRpt*) words='--Owner' ;;
    CDicionarioRpt*) words='--Owner' ;;
    CDeptoRpt*) words='--Owner' ;;
    CGrupoRpt*) words='--Owner' ;;
    CModeloRpt*) words='--Owner --CodModelo' ;;
    CTipo_CaixaRpt*) words='--Owner' ;;
    CGrupoOperadorRpt*) words='--Owner' ;;
    CSubgrupoRpt*) words='--Owner' ;;
    COperadorRpt*) words='--Owner' ;;
    CDocumentoRpt*) words='--Owner --DataArmazenamento1 --DataArmazenamento2 --CodDepto' ;;
    CSolicitacaoRpt*) words='--Owner --CodSolicit --ListarJaDevolvidos' ;;
    CLogRpt*) words='--Owner --MaquinaOrigem --Operador --Acao --Evento --CodDocto --DataInicial --DataFinal' ;;
    CCaixaRpt*) words='--Owner --Modulo1 --Modulo2 --Modulo3 --Ordenacao --SomenteExistentes --Tipo --CodDepto --CodSerie --ModoPregresso' ;;
    CContainerRpt*) words='--Owner --Container1 --Container2 --Container3' ;;
    CEstatImgRpt*) words='--Owner --DataInicial --DataFinal --CodOperador --CodDepto --TipoRpt' ;;
    CEstatIndexRpt*) words='--Owner --CodOperador --CodDepto --DescrDepto --DescrOperador --DataInicial --DataFinal --NumeroPC1 --NumeroPC2 --NumeroPC3 --NumeroPC4 --NumeroPC5 --NumeroObs' ;;
    CEstatSuporteRpt*) words='--Owner --DataInicial --DataFinal --TipoRpt' ;;
    CEstatSubgrupoRpt*) words='--Owner --DataInicial --DataFinal --TipoRpt' ;;
    CEstatSerieRpt*) words='--DataInicial --DataFinal --Owner --TipoRpt --CodGrupo' ;;
  esac
  echo " $words"
}

complete -o filenames -F _kodrarpt kodrarpt kodrarpt.exe
