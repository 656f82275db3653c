// Passes an object of the script as the parameter object and writes the first title of each listing of media into a
// UTF-16 file. Arguments: the file to write, the connection string.
//
// The script is in JScript because the members of VBScript's classes cannot be found by name in Wine. The members are
// functions because Wine's JScript calls a member that a client reads.
var out = new ActiveXObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), true, true);
var report = new ActiveXObject("KodraRpt.CCDRpt");
report.StringConexao = WScript.Arguments(1);

function Title(filter) {
  var rows;
  try {
    rows = report.RelatorioMidias(filter);
  } catch (e) {
    out.Write(e.number + " " + e.description + "\n");
    return;
  }
  out.Write((rows.EOF ? "(none)" : rows.Fields("RELATORIO").Value) + "\n");
}

function Returning(kind) {
  return function () { return kind; };
}

Title({TipoRpt: Returning("T")});
Title({TipoRpt: Returning("V")});
Title({Owner: Returning("Arquivo Geral")});
out.Close();
