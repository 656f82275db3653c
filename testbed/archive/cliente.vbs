' Does what the archive's front end does, for every report: creates the report class and its parameter object by ProgID,
' sets the connection string and the filters, calls the method and reads the recordset to its end.
'
' cliente.vbs CONNECTION OUTPUT LOG: prints into the file OUTPUT (UTF-16), lets the module reports write the log file
' LOG, and ends with 1 when a result differs from the expected one. CONNECTION is a connection string, or the name of an
' environment variable that contains one: a password does not belong on a command line. tabela.vbs must be appended to
' the script.
Option Explicit

Dim connection, output, logPath, report, parameters, rows, reason, listener, link, announced
Dim calls, rowTotal, refusals, surprises
connection = WScript.Arguments(0)
If InStr(connection, "=") = 0 Then connection = CreateObject("WScript.Shell").Environment("PROCESS").Item(connection)
Set output = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(1), True, True)
logPath = WScript.Arguments(2)
Set listener = New LogListener
announced = 0
calls = 0
rowTotal = 0
refusals = 0
surprises = 0

' The choices that the user of the front end would make from the archive.
Dim firstDay, lastDay, department, request, module, subordinate, closedParent, container, subgroup
firstDay = DateSerial(2010, 7, 1)
lastDay = DateSerial(2010, 12, 31)
department = FirstValue("SELECT MIN(COD_DEPTO) FROM DOCUMENTO")
request = FirstValue("SELECT MIN(COD_SOLICIT) FROM SOLICITACAO WHERE DEVOLVIDO = 'D'")
module = FirstValue("SELECT MIN(NUM_CAIXA) FROM DOCUMENTO WHERE NUM_CAIXA > 'AA000'")
closedParent = FirstValue("SELECT MIN(NUM_CAIXA) FROM CAIXA_SUBORDINADA WHERE DATA_FECHAMENTO IS NOT NULL")
subordinate = closedParent & "01"
container = FirstValue("SELECT MIN(CONTAINER) FROM CAIXA WHERE DATA_VENCIMENTO IS NOT NULL")
subgroup = FirstValue("SELECT MIN(COD_GRUPO) FROM DOCUMENTO WHERE COD_ASSUNTO IS NOT NULL")

' Each report: its objects, the call, and its result.
On Error Resume Next
' Catalogs.
Prepare "Mídias", "CCDRpt"
Set rows = report.RelatorioMidias(parameters)
Show

Prepare "Mídias vencidas", "CCDRpt"
parameters.TipoRpt = "Vencidas"
OnSQLite "a soma de anos sai entre aspas, sem ler as colunas: nenhuma mídia vence"
Set rows = report.RelatorioMidias(parameters)
Show

Prepare "Tipos de mídia", "CTipo_MidiaRpt"
Set rows = report.RelatorioTiposMidia(parameters)
Show

Prepare "Suportes", "CSuporteRpt"
Set rows = report.RelatorioSuportes(parameters)
Show

Prepare "Séries", "CSerieRpt"
Set rows = report.RelatorioSeries(parameters)
Show

Prepare "Depósitos", "CDepositoRpt"
Set rows = report.RelatorioDepositos(parameters)
Show

Prepare "Termos controlados", "CDicionarioRpt"
Set rows = report.RelatorioTermosControlados(parameters)
Show

Prepare "Departamentos", "CDeptoRpt"
Set rows = report.RelatorioDeptos(parameters)
Show

Prepare "Grupos", "CGrupoRpt"
Set rows = report.RelatorioGrupos(parameters)
Show

Prepare "Modelos", "CModeloRpt"
Set rows = report.RelatorioModelos(parameters)
Show

Prepare "Tipos de módulo", "CTipo_CaixaRpt"
Set rows = report.RelatorioTiposModulo(parameters)
Show

Prepare "Grupos de operadores", "CGrupoOperadorRpt"
Set rows = report.RelatorioGruposOperadores(parameters)
Show

Prepare "Subgrupos", "CSubgrupoRpt"
Set rows = report.RelatorioSubgrupos(parameters)
Show

Prepare "Operadores", "COperadorRpt"
Set rows = report.RelatorioOperadores(parameters)
Show

' Documents, requests and log.
Prepare "Documentos", "CDocumentoRpt"
Set rows = report.RelatorioSintetico(parameters)
Show

Prepare "Documentos do período", "CDocumentoRpt"
parameters.DataArmazenamento1 = firstDay
parameters.DataArmazenamento2 = lastDay
OnSQLite "a data do período vai sem aspas e o banco recusa o comando"
Set rows = report.RelatorioSintetico(parameters)
Show

Prepare "Documentos, analítico", "CDocumentoRpt"
parameters.CodDepto = department
Set rows = report.RelatorioAnalitico(parameters)
Show

Prepare "Inventários", "CDocumentoRpt"
Set rows = report.RelatorioInventarios(parameters)
Show

Prepare "Retirada de originais", "CSolicitacaoRpt"
parameters.CodSolicit = request
Set rows = report.RelatorioRetiradaOriginal(parameters)
Show

Prepare "Devolução de originais", "CSolicitacaoRpt"
OnSQLite "não há texto de data neste banco, sobra uma vírgula e o banco recusa o comando"
Set rows = report.RelatorioDevolucaoOriginal(parameters)
Show

Prepare "Eventos", "CLogRpt"
parameters.DataInicial = firstDay
parameters.DataFinal = lastDay
Set rows = report.RelatorioLog(parameters)
Show

' Modules and containers.
Prepare "Etiquetas de abertura", "CCaixaRpt"
parameters.Modulo1 = module
Set rows = report.EtiquetaAbertura(parameters)
Show

Prepare "Etiquetas de abertura de subordinados", "CCaixaRpt"
parameters.Tipo = "S"
parameters.Modulo1 = subordinate
Set rows = report.EtiquetaAbertura(parameters)
Show

Prepare "Etiquetas de fechamento", "CCaixaRpt"
parameters.Modulo1 = module
Set rows = report.EtiquetaFechamento(parameters)
Show

Prepare "Etiquetas de fechamento de subordinados", "CCaixaRpt"
parameters.Modulo1 = closedParent
Set rows = report.EtiquetaFechamentoSubordinada(parameters)
Show

Prepare "Etiquetas divisórias", "CCaixaRpt"
parameters.Modulo1 = module
Set rows = report.EtiquetaDivisoria(parameters)
Show

Prepare "Módulos excluídos", "CCaixaRpt"
Set rows = report.ModulosExcluidos(parameters)
Show

Prepare "Módulos vencidos", "CCaixaRpt"
Set rows = report.ModulosVencidos(parameters)
Show

Prepare "Documentos no módulo", "CCaixaRpt"
parameters.Modulo1 = module
Set rows = report.DocsNoModulo(parameters)
Show

Prepare "Documentos no módulo, sub-relatório", "CCaixaRpt"
parameters.Modulo1 = module
Set rows = report.DocsNoModuloSubRpt(parameters)
Show

Prepare "Documentos não indexados", "CCaixaRpt"
Set rows = report.DocsNaoIndexadosNosModulos(parameters)
Show

Prepare "Relação de módulos", "CCaixaRpt"
parameters.SomenteExistentes = True
Set rows = report.RelatoriosModulos(parameters)
Show

Prepare "Autorização de descarte", "CCaixaRpt"
parameters.Modulo1 = module
Set rows = report.AutorizacaoDescarteModuloSubRpt(parameters)
Show

Prepare "Contêineres", "CContainerRpt"
Set rows = report.RelatorioContainers(parameters)
Show

Prepare "Etiqueta de contêiner", "CContainerRpt"
parameters.Container1 = container
Set rows = report.EtiquetaAbertura(parameters)
Show

Prepare "Etiqueta de contêiner, módulos", "CContainerRpt"
parameters.Container1 = container
Set rows = report.EtiquetaAberturaSubRpt(parameters)
Show

' Statistics.
Prepare "Produção de imagens", "CEstatImgRpt"
parameters.DataInicial = firstDay
parameters.DataFinal = lastDay
parameters.TipoRpt = "P"
OnSQLite "a data do período vira uma conta, 01/07/2010, e nenhum documento cai nele"
Set rows = report.RelatorioEstatisticas(parameters)
Show

Prepare "Produção de indexação", "CEstatIndexRpt"
parameters.DataInicial = firstDay
parameters.DataFinal = lastDay
OnSQLite "a data do período vira uma conta, 01/07/2010, e nenhum documento cai nele"
Set rows = report.RelatorioEstatisticasPorDocumento(parameters)
Show

Prepare "Indexação por palavras-chave", "CEstatIndexRpt"
parameters.DataInicial = firstDay
parameters.DataFinal = lastDay
parameters.DescrOperador = "Todos os Operadores"
parameters.DescrDepto = "Todos os Departamentos"
parameters.NumeroPC1 = "120"
parameters.NumeroPC2 = "98"
parameters.NumeroPC3 = "57"
parameters.NumeroPC4 = "31"
parameters.NumeroPC5 = "9"
parameters.NumeroObs = "44"
Set rows = report.RelatorioEstatisticasPorPalavrasChave(parameters)
Show

Prepare "Estatística por suporte", "CEstatSuporteRpt"
parameters.DataInicial = firstDay
parameters.DataFinal = lastDay
parameters.TipoRpt = "F"
OnSQLite "a data do período vira uma conta, 01/07/2010, e nenhum documento cai nele"
Set rows = report.RelatorioEstatisticas(parameters)
Show

Prepare "Estatística por subgrupo", "CEstatSubgrupoRpt"
parameters.DataInicial = firstDay
parameters.DataFinal = lastDay
OnSQLite "a data do período vira uma conta, 01/07/2010, e nenhum documento cai nele"
Set rows = report.RelatorioEstatisticas(parameters)
Show

Prepare "Estatística por série", "CEstatSerieRpt"
parameters.DataInicial = firstDay
parameters.DataFinal = lastDay
parameters.CodGrupo = subgroup
parameters.TipoRpt = "N"
OnSQLite "a data do período vira uma conta, 01/07/2010, e nenhum documento cai nele"
Set rows = report.RelatorioEstatisticas(parameters)
Show

On Error Goto 0
ShowFailure
ShowLog
Line calls & " chamadas, " & rowTotal & " linhas, " & refusals & " sem linhas neste banco como previsto, " & _
  surprises & " surpresas."
output.Close
If surprises > 0 Then WScript.Quit 1

' Counts the log lines that the module reports announce.
Class LogListener
  Public Sub DebugLog(text)
    announced = announced + 1
  End Sub
End Class

Function FirstValue(statement)
  Dim cn, rs
  Set cn = CreateObject("ADODB.Connection")
  cn.Open connection
  Set rs = cn.Execute(statement)
  FirstValue = rs.Fields(0).Value
  rs.Close
  cn.Close
End Function

' Makes the report object and its parameter object. A sub-report continues with the object of its report.
Sub Prepare(title, className)
  Err.Clear
  calls = calls + 1
  reason = ""
  Set rows = Nothing
  Line ""
  Line "== " & title & " (KodraRpt." & className & ")"
  Set report = CreateObject("KodraRpt." & className)
  Set parameters = CreateObject("KodraRpt." & className & "Obj")
  report.StringConexao = connection
  parameters.Owner = "Arquivo Geral"
  If className = "CCaixaRpt" Then ListenToLog
End Sub

Sub ListenToLog()
  report.LogFile = logPath
  Set link = CreateObject("KodraSuporte.Ouvinte")
  link.Conecta report, listener
End Sub

' Why a report returns no rows on SQLite, where the client gets what the database makes of the statement.
Sub OnSQLite(text)
  If InStr(1, connection, "SQLite", 1) > 0 Then reason = text
End Sub

' Prints the rows that the call returned, or the error that it raised.
Sub Show()
  Dim count
  count = 0
  If Err.Number <> 0 Then
    Line "   erro: " & Err.Description
    Err.Clear
    If reason = "" Then surprises = surprises + 1
  Else
    count = PrintRows(rows)
    If (count = 0) <> (reason <> "") Then surprises = surprises + 1
  End If
  rowTotal = rowTotal + count
  If reason = "" Then Exit Sub
  refusals = refusals + 1
  Line "   por quê: " & reason
End Sub

' The error that a client gets when it forgets the connection string.
Sub ShowFailure()
  Line ""
  Line "== Uma chamada sem StringConexao (KodraRpt.CDeptoRpt)"
  Set report = CreateObject("KodraRpt.CDeptoRpt")
  Set parameters = CreateObject("KodraRpt.CDeptoRptObj")
  On Error Resume Next
  Set rows = report.RelatorioDeptos(parameters)
  If Err.Number = 0 Then surprises = surprises + 1
  Line "   número:    " & Err.Number & " (" & Hex(Err.Number) & ")"
  Line "   fonte:     " & Err.Source
  Line "   descrição: " & Err.Description
End Sub

' The log file has one line for each announced line.
Sub ShowLog()
  Dim lines
  lines = LogLines()
  Line ""
  Line "== Log de depuração dos módulos: " & announced & " eventos, " & lines & " linhas no arquivo"
  Line ""
  If lines <> announced Or lines = 0 Then surprises = surprises + 1
End Sub

Function LogLines()
  Dim file
  Set file = CreateObject("Scripting.FileSystemObject").OpenTextFile(logPath, 1)
  LogLines = 0
  Do Until file.AtEndOfStream
    file.ReadLine
    LogLines = LogLines + 1
  Loop
  file.Close
End Function
