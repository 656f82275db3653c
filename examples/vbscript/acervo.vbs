' Lista os departamentos e imprime a etiqueta de abertura de um módulo.
'
'   cscript //nologo acervo.vbs "Driver={SQLite3};Database=C:\acervo\acervo.db" AA001
'
' O componente é de 32 bits: num Windows de 64 bits, use %windir%\SysWOW64\cscript.exe. O arquivo está em UTF-8; salve-o
' na página de código do Windows (1252) antes de usá-lo.
' Os testes executam este exemplo no Wine.
Option Explicit

If WScript.Arguments.Count <> 2 Then
  WScript.Echo "Uso: acervo.vbs CONEXÃO MÓDULO"
  WScript.Quit 2
End If

' Um erro dentro de uma das rotinas a encerra e volta para cá, com Err preenchido.
On Error Resume Next
ListaDepartamentos WScript.Arguments(0)
If Err.Number = 0 Then ImprimeEtiqueta WScript.Arguments(0), WScript.Arguments(1)
If Err.Number <> 0 Then
  WScript.Echo "Erro " & Err.Number & " em " & Err.Source & ": " & Err.Description
  WScript.Quit 1
End If

Sub ListaDepartamentos(conexao)
  Dim relatorio, linhas
  Set relatorio = CreateObject("KodraRpt.CDeptoRpt")
  relatorio.StringConexao = conexao
  Set linhas = relatorio.RelatorioDeptos(CreateObject("KodraRpt.CDeptoRptObj"))
  WScript.Echo "Departamentos:"
  Do Until linhas.EOF
    WScript.Echo "  " & linhas("DESCR_DEPTO")
    linhas.MoveNext
  Loop
  ' O Recordset mantém aberta a conexão com o banco: feche-o assim que terminar.
  linhas.Close
End Sub

Sub ImprimeEtiqueta(conexao, modulo)
  Dim relatorio, parametros, linhas
  Set parametros = CreateObject("KodraRpt.CCaixaRptObj")
  parametros.Modulo1 = modulo
  Set relatorio = CreateObject("KodraRpt.CCaixaRpt")
  relatorio.StringConexao = conexao
  Set linhas = relatorio.EtiquetaAbertura(parametros)
  WScript.Echo "Etiquetas de abertura:"
  ' Cada módulo vem duas vezes: são duas etiquetas de abertura.
  Do Until linhas.EOF
    ' Um campo nulo (Null) junto de um texto vale um texto vazio.
    WScript.Echo "  " & linhas("NUM_CAIXA") & " | " & linhas("DESC_CAIXA") & " | guarda " & linhas("TIPO_GUARDA") & _
      " | anos " & linhas("ANOS_VENCIMENTO")
    linhas.MoveNext
  Loop
  linhas.Close
End Sub
