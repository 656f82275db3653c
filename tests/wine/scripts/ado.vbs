' ADO as a script uses it. The argument is the path of an SQLite file to make.
Option Explicit

Dim cn, rs, cmd, f, names, source, n, rows
source = "Driver={SQLite3};Database=" & WScript.Arguments(0) & ";"

Set cn = CreateObject("ADODB.Connection")
cn.Open source
WScript.Echo "state " & cn.State
cn.Execute "create table DEPTO (COD varchar(5), DESCR varchar(40), ANDAR integer)"
cn.Execute "insert into DEPTO values ('00001', 'Arquivo', 1)"
cn.Execute "insert into DEPTO values ('00002', 'Biblioteca', null)"
cn.Execute "update DEPTO set COD = COD", n
WScript.Echo "changed " & n

Set rs = cn.Execute("select COD, DESCR, ANDAR from DEPTO order by COD")
names = ""
For Each f In rs.Fields
  names = names & f.Name & " "
Next
WScript.Echo names & rs.Fields.Count & " " & rs.Fields(0).Name
WScript.Echo rs("COD") & " " & rs("DESCR").Value & " " & rs.Fields("ANDAR") & " " & rs(0)
rs.MoveNext
WScript.Echo rs("DESCR") & " " & IsNull(rs("ANDAR").Value) & " " & rs.EOF
rs.MoveNext
WScript.Echo "end " & rs.EOF
rs.MoveFirst
WScript.Echo rs("COD")
rs.Close
WScript.Echo rs.State

Set rs = CreateObject("ADODB.Recordset")
rs.Open "select COD from DEPTO order by COD", cn, 0, 1, 1
Do Until rs.EOF
  WScript.Echo rs("COD")
  rs.MoveNext
Loop
rs.Close
rs.Open "select count(*) as TOTAL from DEPTO", source
WScript.Echo rs("TOTAL") + 1
rs.Close

Set cmd = CreateObject("ADODB.Command")
Set cmd.ActiveConnection = cn
cmd.CommandText = "select DESCR from DEPTO where COD = ?"
cmd.CommandType = 1
cmd.Parameters.Append cmd.CreateParameter("X", 200, 1, 128, "00002")
rs.Open cmd
WScript.Echo cmd.Parameters.Count & " " & cmd.Parameters("X") & " " & rs("DESCR")
rs.Close
cmd.Parameters("X") = "00001"
cmd("X").Value = cmd("X").Value
Set rs = cmd.Execute
WScript.Echo rs("DESCR")
rs.Close

Set rs = CreateObject("ADODB.Recordset")
rs.CursorLocation = 3
rs.Open "select COD, ANDAR from DEPTO order by COD", cn, 3
Set rs.ActiveConnection = Nothing
WScript.Echo rs.RecordCount & " " & (rs.ActiveConnection Is Nothing)
rows = rs.GetRows
WScript.Echo UBound(rows, 1) & " " & UBound(rows, 2) & " " & rows(0, 1) & " " & IsNull(rows(1, 1))
rs.Close

Set rs = CreateObject("ADODB.Recordset")
rs.Fields.Append "A", 200, 255
rs.Fields.Append "B", 3
rs.Open
rs.AddNew
rs("A") = "x"
rs.Fields("B") = 7
rs.Update
rs.AddNew
rs("A").Value = "y"
rs.Fields("B").Value = rs("B").DefinedSize
rs.Update
rs.MoveFirst
WScript.Echo rs("A") & rs("B") & " " & rs.RecordCount & " " & (rs.ActiveConnection Is Nothing)
rs.MoveNext
WScript.Echo rs("A") & rs("B")
rs.Close

cn.Execute "create table GRANDE (N bigint)"
cn.Execute "insert into GRANDE values (5000000000)"
Set rs = cn.Execute("select N from GRANDE")
WScript.Echo rs("N")
rs.Close

On Error Resume Next
cn.Execute "select NADA from DEPTO"
WScript.Echo Hex(Err.Number) & " " & Err.Source
WScript.Echo cn.Errors.Count & " " & cn.Errors(0).NativeError & " " & (cn.Errors(0).Description = Err.Description)
Err.Clear
rs.MoveNext
WScript.Echo Err.Number & " " & Err.Source & ": " & Err.Description
Err.Clear
n = rs("NADA")
WScript.Echo Err.Number
Err.Clear
rs.Sort = "N"
WScript.Echo Hex(Err.Number) & " " & Err.Source & ": " & Err.Description
Err.Clear
cn.Close
WScript.Echo cn.State & " " & Err.Number
