' The calls of a working day, as a front end makes them: ten reports by turns on one object, and the same statements by
' ADO alone.
'
' Arguments: connection string, rounds, a folder. A round calls each report ten times and then makes as many bare calls.
' The file rotina.txt in the folder gets the rows of one call of each report, of both sides, in its first line, and in
' each further line the milliseconds of a round's calls and those of its bare calls. After the rounds, the script calls
' each report once for each round, and then makes as many bare calls. Before, between and after these calls it makes the
' file rotina-N.sinal (N = 1, 2, 3) and waits until it is deleted.
Option Explicit

Const adUseServer = 2, adXactReadCommitted = 4096, adOpenForwardOnly = 0, adLockReadOnly = 1, adCmdText = 1
Const kReports = 10, kCallsARound = 10
Dim connection, rounds, folder, files, out, i, report, parameters, started, took, statements(9), prepared
connection = WScript.Arguments(0)
rounds = CLng(WScript.Arguments(1))
folder = WScript.Arguments(2)
Set files = CreateObject("Scripting.FileSystemObject")
Set out = files.CreateTextFile(folder & "\rotina.txt", True)
Set report = CreateObject("KodraRpt.CCaixaRpt")
report.StringConexao = connection
Set parameters = CreateObject("KodraRpt.CCaixaRptObj")
parameters.Modulo1 = "AA001"
PrepareBareCalls

out.WriteLine CallReports(1) & " " & CallBare(1)
For i = 1 To rounds
  started = Timer
  CallReports kCallsARound
  took = Timer - started
  started = Timer
  CallBare kCallsARound
  out.WriteLine CLng(took * 1000) & " " & CLng((Timer - started) * 1000)
Next
WaitForSample 1
CallReports rounds
WaitForSample 2
CallBare rounds
WaitForSample 3
out.Close

' The rows of a report.
Function RowsOf(number)
  Select Case number
    Case 0: Set RowsOf = report.EtiquetaAbertura(parameters)
    Case 1: Set RowsOf = report.EtiquetaFechamento(parameters)
    Case 2: Set RowsOf = report.EtiquetaDivisoria(parameters)
    Case 3: Set RowsOf = report.ModulosExcluidos(parameters)
    Case 4: Set RowsOf = report.ModulosVencidos(parameters)
    Case 5: Set RowsOf = report.DocsNoModulo(parameters)
    Case 6: Set RowsOf = report.DocsNoModuloSubRpt(parameters)
    Case 7: Set RowsOf = report.DocsNaoIndexadosNosModulos(parameters)
    Case 8: Set RowsOf = report.RelatoriosModulos(parameters)
    Case 9: Set RowsOf = report.AutorizacaoDescarteModuloSubRpt(parameters)
  End Select
End Function

' Calls each report so many times; returns how many rows there were.
Function CallReports(calls)
  Dim number, n
  CallReports = 0
  For n = 1 To calls
    For number = 0 To kReports - 1
      CallReports = CallReports + CountOf(RowsOf(number))
    Next
  Next
End Function

Sub PrepareBareCalls()
  Dim number, rows
  For number = 0 To kReports - 1
    Set rows = RowsOf(number)
    statements(number) = rows.Source
    prepared = rows.ActiveConnection.ConnectionString
  Next
End Sub

' The same rows by ADO alone. As with a report, nothing but the rows is left of a call.
Function BareRowsOf(number)
  Dim helper, code, link
  Set helper = CreateObject("KodraConexao.StrCon")
  helper.StrCon = connection
  code = helper.TipoBanco
  Set link = CreateObject("ADODB.Connection")
  link.ConnectionString = prepared
  link.CursorLocation = adUseServer
  link.IsolationLevel = adXactReadCommitted
  link.Open
  Set BareRowsOf = CreateObject("ADODB.Recordset")
  BareRowsOf.CursorLocation = adUseServer
  BareRowsOf.CacheSize = 100
  BareRowsOf.Open statements(number), link, adOpenForwardOnly, adLockReadOnly, adCmdText
End Function

Function CallBare(calls)
  Dim number, n
  CallBare = 0
  For n = 1 To calls
    For number = 0 To kReports - 1
      CallBare = CallBare + CountOf(BareRowsOf(number))
    Next
  Next
End Function

Function CountOf(rows)
  CountOf = 0
  Do Until rows.EOF
    CountOf = CountOf + 1
    rows.MoveNext
  Loop
End Function

Sub WaitForSample(number)
  Dim name
  name = folder & "\rotina-" & number & ".sinal"
  files.CreateTextFile(name, True).Close
  Do While files.FileExists(name)
    WScript.Sleep 20
  Loop
End Sub
