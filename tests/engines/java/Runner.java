import java.io.BufferedWriter;
import java.io.IOException;
import java.math.BigDecimal;
import java.nio.file.Files;
import java.nio.file.Path;
import java.sql.Connection;
import java.sql.Date;
import java.sql.DriverManager;
import java.sql.PreparedStatement;
import java.sql.ResultSet;
import java.sql.ResultSetMetaData;
import java.sql.SQLException;
import java.sql.Statement;
import java.sql.Timestamp;
import java.time.format.DateTimeFormatter;
import java.util.ArrayList;
import java.util.List;

/**
 * Loads the sample archive into engines in memory and runs statements on each: for every engine six arguments,
 *
 * <pre>JDBC-URL shims.sql archive.txt schema.sql statements.txt results.txt</pre>
 *
 * <p>A line of the archive has fields separated by tabs: "run" and a statement, "insert" and a prepared INSERT, or
 * "row" and its values. A line of the statements is a statement and, after a tab, its parameter if it has one. The
 * answer to a statement is "rows", their number and the column names, then the rows; or "error" and the engine's
 * message.
 *
 * <p>A value is a letter and its text: n a number, t a text, d a date with its time of day; \N is null. In every field
 * \t, \n, \r and \\ replace the characters that would end it.
 */
public final class Runner {
  private static final DateTimeFormatter MOMENT = DateTimeFormatter.ofPattern("uuuu-MM-dd HH:mm:ss");

  public static void main(String[] arguments) throws Exception {
    for (int i = 0; i < arguments.length; i += 6) {
      try (Connection connection = DriverManager.getConnection(arguments[i])) {
        runScript(connection, Path.of(arguments[i + 1]));
        load(connection, Path.of(arguments[i + 2]));
        runScript(connection, Path.of(arguments[i + 3]));
        answer(connection, Path.of(arguments[i + 4]), Path.of(arguments[i + 5]));
      }
    }
  }

  /** Runs the statements of a script, each ended by a semicolon at the end of a line; lines of "--" are comments. */
  private static void runScript(Connection connection, Path script) throws IOException, SQLException {
    StringBuilder text = new StringBuilder();
    for (String line : Files.readAllLines(script)) {
      if (line.isBlank() || line.startsWith("--")) continue;
      text.append(text.length() == 0 ? "" : "\n").append(line);
      if (!line.endsWith(";")) continue;
      execute(connection, text.substring(0, text.length() - 1));
      text.setLength(0);
    }
  }

  private static void execute(Connection connection, String sql) throws SQLException {
    try (Statement statement = connection.createStatement()) {
      statement.execute(sql);
    } catch (SQLException e) {
      throw new SQLException(sql + ": " + e.getMessage(), e);
    }
  }

  private static void load(Connection connection, Path archive) throws IOException, SQLException {
    PreparedStatement insert = null;
    for (String line : Files.readAllLines(archive)) {
      String[] fields = line.split("\t", -1);
      switch (fields[0]) {
        case "run" -> execute(connection, unescaped(fields[1]));
        case "insert" -> insert = connection.prepareStatement(unescaped(fields[1]));
        case "row" -> {
          for (int i = 1; i < fields.length; i++) insert.setObject(i, valueOf(fields[i]));
          insert.executeUpdate();
        }
        default -> throw new IOException(archive + ": " + line);
      }
    }
  }

  private static void answer(Connection connection, Path statements, Path results) throws IOException {
    try (BufferedWriter out = Files.newBufferedWriter(results)) {
      for (String line : Files.readAllLines(statements)) {
        String[] fields = line.split("\t", -1);
        List<String> rows = new ArrayList<>();
        String head;
        try (PreparedStatement statement = connection.prepareStatement(unescaped(fields[0]))) {
          if (fields.length > 1) statement.setString(1, unescaped(fields[1]));
          try (ResultSet result = statement.executeQuery()) {
            String columns = columnsOf(result.getMetaData());
            while (result.next()) rows.add(rowOf(result));
            head = "rows\t" + rows.size() + columns;
          }
        } catch (SQLException e) {
          rows.clear();
          head = "error\t" + escaped(e.getMessage());
        }
        out.write(head + "\n");
        for (String row : rows) out.write(row + "\n");
      }
    }
  }

  private static String columnsOf(ResultSetMetaData columns) throws SQLException {
    StringBuilder names = new StringBuilder();
    for (int i = 1; i <= columns.getColumnCount(); i++) names.append('\t').append(escaped(columns.getColumnLabel(i)));
    return names.toString();
  }

  private static String rowOf(ResultSet result) throws SQLException {
    StringBuilder row = new StringBuilder();
    for (int i = 1; i <= result.getMetaData().getColumnCount(); i++) {
      row.append(i == 1 ? "" : "\t").append(textOf(result.getObject(i)));
    }
    return row.toString();
  }

  private static Object valueOf(String field) {
    if (field.equals("\\N")) return null;
    String text = unescaped(field.substring(1));
    return switch (field.charAt(0)) {
      case 'n' -> Long.valueOf(text);
      case 'd' -> Timestamp.valueOf(text);
      default -> text;
    };
  }

  private static String textOf(Object value) {
    if (value == null) return "\\N";
    if (value instanceof Number) {
      BigDecimal number = new BigDecimal(value.toString());
      return "n" + (number.signum() == 0 ? "0" : number.stripTrailingZeros().toPlainString());
    }
    if (value instanceof Timestamp moment) return "d" + moment.toLocalDateTime().format(MOMENT);
    if (value instanceof Date day) return "d" + day.toLocalDate().atStartOfDay().format(MOMENT);
    return "t" + escaped(value.toString());
  }

  private static String escaped(String text) {
    return text.replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n").replace("\r", "\\r");
  }

  private static String unescaped(String field) {
    StringBuilder text = new StringBuilder();
    for (int i = 0; i < field.length(); i++) {
      char c = field.charAt(i);
      if (c == '\\') c = switch (field.charAt(++i)) {
        case 't' -> '\t';
        case 'n' -> '\n';
        case 'r' -> '\r';
        default -> '\\';
      };
      text.append(c);
    }
    return text.toString();
  }
}
