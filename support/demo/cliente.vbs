' What the archive's front end does, for each catalog report: creates the report class and its parameter object by
' ProgID, sets the connection string, calls the method and reads the recordset to its end.
'
' cliente.vbs CONNECTION OUTPUT: prints into the file OUTPUT (UTF-16) and ends with 1 when a report failed.
Option Explicit

Const SAMPLE_ROWS = 5
Const PAGE_WIDTH = 132
Const CELL_WIDTH = 28

Dim connection, output, report, parameters, rows, reports, rowTotal, failures
connection = WScript.Arguments(0)
Set output = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(1), True, True)
reports = 0
rowTotal = 0
failures = 0

' Each report: its objects, the call, and what came of it.
On Error Resume Next
Prepare "Mídias", "CCDRpt"
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

On Error Goto 0
ShowFailure
Line reports & " relatórios, " & rowTotal & " linhas, " & failures & " falhas inesperadas."
output.Close
If failures > 0 Then WScript.Quit 1

Sub Line(text)
  output.Write text & vbCrLf
End Sub

' Makes the report object and its parameter object.
Sub Prepare(title, className)
  reports = reports + 1
  Line "== " & title & " (KodraRpt." & className & ")"
  Set report = CreateObject("KodraRpt." & className)
  Set parameters = CreateObject("KodraRpt." & className & "Obj")
  report.StringConexao = connection
  parameters.Owner = "Arquivo Geral"
End Sub

' Prints the rows that the call gave, or the error that it raised.
Sub Show()
  If Err.Number = 0 Then
    PrintRows rows
  Else
    failures = failures + 1
    Line "   falhou: " & Err.Description
    Err.Clear
  End If
End Sub

Sub PrintRows(rows)
  Dim cells, names, count, i
  names = FieldNames(rows)
  ReDim cells(SAMPLE_ROWS, UBound(names))
  For i = 0 To UBound(names)
    cells(0, i) = names(i)
  Next
  count = 0
  Do Until rows.EOF
    count = count + 1
    If count <= SAMPLE_ROWS Then
      For i = 0 To UBound(names)
        cells(count, i) = CellText(rows.Fields(i).Value)
      Next
    End If
    rows.MoveNext
  Loop
  rows.Close
  rowTotal = rowTotal + count
  Line "   " & Counted(UBound(names) + 1, "coluna") & ", " & Counted(count, "linha")
  If count > SAMPLE_ROWS Then PrintTable cells, SAMPLE_ROWS Else PrintTable cells, count
  Line ""
End Sub

Function Counted(count, noun)
  Counted = count & " " & noun
  If count <> 1 Then Counted = Counted & "s"
End Function

Function FieldNames(rows)
  Dim names, i
  ReDim names(rows.Fields.Count - 1)
  For i = 0 To UBound(names)
    names(i) = rows.Fields(i).Name
  Next
  FieldNames = names
End Function

Function CellText(value)
  If IsNull(value) Then
    CellText = "-"
  ElseIf VarType(value) = vbDate Then
    CellText = Right("0" & Day(value), 2) & "/" & Right("0" & Month(value), 2) & "/" & Year(value)
  Else
    CellText = Replace(Replace(CStr(value), vbCr, " "), vbLf, " ")
  End If
  If Len(CellText) > CELL_WIDTH Then CellText = Left(CellText, CELL_WIDTH - 1) & "…"
End Function

' Prints a row a line; a table wider than the page is turned on its side, a column a line.
Sub PrintTable(cells, count)
  Dim r, c, turned
  If TableWidth(cells, count, UBound(cells, 2)) <= PAGE_WIDTH Then
    PrintLines cells, count, UBound(cells, 2)
    Exit Sub
  End If
  ReDim turned(UBound(cells, 2), count)
  For r = 0 To count
    For c = 0 To UBound(cells, 2)
      turned(c, r) = cells(r, c)
    Next
  Next
  PrintLines turned, UBound(cells, 2), count
End Sub

Function ColumnWidth(cells, lastRow, column)
  Dim r
  ColumnWidth = 0
  For r = 0 To lastRow
    If Len(cells(r, column)) > ColumnWidth Then ColumnWidth = Len(cells(r, column))
  Next
End Function

Function TableWidth(cells, lastRow, lastColumn)
  Dim c
  TableWidth = 1
  For c = 0 To lastColumn
    TableWidth = TableWidth + ColumnWidth(cells, lastRow, c) + 2
  Next
End Function

Sub PrintLines(cells, lastRow, lastColumn)
  Dim r, c, text
  For r = 0 To lastRow
    text = "  "
    For c = 0 To lastColumn
      text = text & " " & cells(r, c) & Space(ColumnWidth(cells, lastRow, c) - Len(cells(r, c)) + 1)
    Next
    Line RTrim(text)
  Next
End Sub

' The error that a client gets when it forgets the connection string.
Sub ShowFailure()
  Line "== Uma chamada sem StringConexao (CDeptoRpt.RelatorioDeptos)"
  Set report = CreateObject("KodraRpt.CDeptoRpt")
  Set parameters = CreateObject("KodraRpt.CDeptoRptObj")
  On Error Resume Next
  Set rows = report.RelatorioDeptos(parameters)
  If Err.Number = 0 Then failures = failures + 1
  Line "   número:    " & Err.Number & " (" & Hex(Err.Number) & ")"
  Line "   fonte:     " & Err.Source
  Line "   descrição: " & Err.Description
  Line ""
End Sub
