' What the archive's front end does, for each catalog report: creates the report class and its parameter object by
' ProgID, sets the connection string, calls the method and reads the recordset to its end.
'
' cliente.vbs CONNECTION OUTPUT: prints into the file OUTPUT (UTF-16) and ends with 1 when a report failed.
Option Explicit

Const SAMPLE_ROWS = 5
Const PAGE_WIDTH = 132
Const CELL_WIDTH = 28

Dim connection, output, reports, rowTotal, failures
connection = WScript.Arguments(0)
Set output = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(1), True, True)
reports = 0
rowTotal = 0
failures = 0

ShowReport "Mídias", "CCDRpt", "RelatorioMidias", "", ""
ShowReport "Tipos de mídia", "CTipo_MidiaRpt", "RelatorioTiposMidia", "", ""
ShowReport "Suportes", "CSuporteRpt", "RelatorioSuportes", "", ""
ShowReport "Séries", "CSerieRpt", "RelatorioSeries", "", ""
ShowReport "Depósitos", "CDepositoRpt", "RelatorioDepositos", "", ""
ShowReport "Termos controlados", "CDicionarioRpt", "RelatorioTermosControlados", "", ""
ShowReport "Departamentos", "CDeptoRpt", "RelatorioDeptos", "", ""
ShowReport "Grupos", "CGrupoRpt", "RelatorioGrupos", "", ""
ShowReport "Modelos", "CModeloRpt", "RelatorioModelos", "", ""
ShowReport "Tipos de módulo", "CTipo_CaixaRpt", "RelatorioTiposModulo", "", ""
ShowReport "Grupos de operadores", "CGrupoOperadorRpt", "RelatorioGruposOperadores", "", ""
ShowReport "Subgrupos", "CSubgrupoRpt", "RelatorioSubgrupos", "", ""
ShowFailure
Line reports & " relatórios, " & rowTotal & " linhas, " & failures & " falhas inesperadas."
output.Close
If failures > 0 Then WScript.Quit 1

Sub Line(text)
  output.Write text & vbCrLf
End Sub

' Calls one report and prints its rows; a filter is a property of the parameter object and its value.
Sub ShowReport(title, className, method, filter, value)
  Dim report, parameters, rows
  reports = reports + 1
  Line "== " & title & " (" & className & "." & method & ")"
  Set report = CreateObject("KodraRpt." & className)
  Set parameters = CreateObject("KodraRpt." & className & "Obj")
  report.StringConexao = connection
  parameters.Owner = "Arquivo Geral"
  On Error Resume Next
  Set rows = Eval("report." & method & "(parameters)")
  If Err.Number <> 0 Then
    failures = failures + 1
    Line "   falhou: " & Err.Description
    Exit Sub
  End If
  On Error Goto 0
  PrintRows rows
End Sub

Sub PrintRows(rows)
  Dim cells(), names, count, i
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
  Line "   " & (UBound(names) + 1) & " colunas, " & count & " linhas"
  If count > SAMPLE_ROWS Then PrintTable cells, SAMPLE_ROWS Else PrintTable cells, count
  Line ""
End Sub

Function FieldNames(rows)
  Dim names(), i
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
  If Len(CellText) > CELL_WIDTH Then CellText = Left(CellText, CELL_WIDTH - 1) & ChrW(8230)
End Function

' Prints a row a line; a table wider than the page is turned on its side, a column a line.
Sub PrintTable(cells, count)
  Dim r, c, turned()
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
  Dim report, parameters, rows
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
