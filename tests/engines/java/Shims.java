import java.sql.Date;
import java.sql.Timestamp;
import java.time.LocalDate;
import java.time.LocalDateTime;
import java.time.LocalTime;
import java.time.format.DateTimeFormatter;

/** The functions of a database that the engine for its dialect lacks; the scripts in shims/ say which and why. */
public final class Shims {
  private static final LocalDate SQL_SERVERS_DAY_0 = LocalDate.of(1900, 1, 1);
  private static final int STYLE_DD_MM_YYYY = 103;

  /** Oracle's TO_NUMBER of one argument. */
  public static Long toNumber(String text) {
    return text == null ? null : Long.valueOf(text.trim());
  }

  /**
   * SQL Server's CONVERT of a date into text. The engine takes the type CHAR(n) for the call of its function CHAR, so
   * the width comes as the character of that code.
   */
  public static String convert(String type, Timestamp moment, int style) {
    if (style != STYLE_DD_MM_YYYY) throw new IllegalArgumentException("style " + style);
    if (moment == null) return null;
    String text = moment.toLocalDateTime().format(DateTimeFormatter.ofPattern("dd/MM/yyyy"));
    return text.substring(0, Math.min(text.length(), type.charAt(0)));
  }

  /**
   * SQL Server's DATEDIFF in days from day 0. It returns the date of that day, because SQL Server converts the number
   * to a date when it is compared with one, and the engine does not.
   */
  public static Timestamp dateDiff(String part, int from, Timestamp moment) {
    if (!part.equals("dd")) throw new IllegalArgumentException(part);
    LocalDate start = SQL_SERVERS_DAY_0.plusDays(from);
    long days = moment.toLocalDateTime().toLocalDate().toEpochDay() - start.toEpochDay();
    return Timestamp.valueOf(SQL_SERVERS_DAY_0.plusDays(days).atStartOfDay());
  }

  /** DB2's TO_DATE of a date in numbers. */
  public static Timestamp toDate(String text, String format) {
    if (text == null) return null;
    return Timestamp.valueOf(LocalDateTime.of(LocalDate.parse(text, formatter(format)), LocalTime.MIDNIGHT));
  }

  /** DB2's TO_CHAR of a date in numbers. */
  public static String toChar(Timestamp moment, String format) {
    return moment == null ? null : moment.toLocalDateTime().format(formatter(format));
  }

  /** DB2's ADD_MONTHS: the last day of a month stays the last day of a month. */
  public static Date addMonths(Date date, Integer months) {
    if (date == null || months == null) return null;
    LocalDate day = date.toLocalDate();
    LocalDate moved = day.plusMonths(months);
    boolean last = day.getDayOfMonth() == day.lengthOfMonth();
    return Date.valueOf(last ? moved.withDayOfMonth(moved.lengthOfMonth()) : moved);
  }

  /** DB2's DIGITS of an INTEGER: ten digits with leading zeros, without the sign. */
  public static String digits(Integer number) {
    return number == null ? null : String.format("%010d", Math.abs((long) number));
  }

  private static DateTimeFormatter formatter(String format) {
    return DateTimeFormatter.ofPattern(format.replace("DD", "dd").replace("YYYY", "uuuu"));
  }

  private Shims() {}
}
