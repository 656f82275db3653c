' How the demonstration client prints a recordset for a comparison: every row, whole, one line for each value.

Sub Line(text)
  output.Write text & vbCrLf
End Sub

' Prints a recordset to its end; returns the number of rows.
Function PrintRows(rows)
  Dim count, i
  count = 0
  Do Until rows.EOF
    count = count + 1
    For i = 0 To rows.Fields.Count - 1
      Line rows.Fields(i).Name & ": " & ValueText(rows.Fields(i).Value)
    Next
    rows.MoveNext
  Loop
  rows.Close
  PrintRows = count
End Function

Function ValueText(value)
  If IsNull(value) Then ValueText = "Null" Else ValueText = TypeName(value) & " " & value
End Function
