' How the demonstration client prints a recordset: an aligned table into the file `output`.

Const SAMPLE_ROWS = 5
Const PAGE_WIDTH = 132
Const CELL_WIDTH = 28

Sub Line(text)
  output.Write text & vbCrLf
End Sub

' Reads a recordset to its end and prints its first rows; returns the number of rows.
Function PrintRows(rows)
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
  Line "   " & Counted(UBound(names) + 1, "coluna") & ", " & Counted(count, "linha")
  If count > SAMPLE_ROWS Then PrintTable cells, SAMPLE_ROWS Else PrintTable cells, count
  PrintRows = count
End Function

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

' Prints one line per row; a table wider than the page is transposed, with one line per column.
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

