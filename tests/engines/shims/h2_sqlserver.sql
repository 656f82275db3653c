-- The parts of SQL Server that the statements use and H2 in its mode for SQL Server lacks.

-- Lets the functions below replace H2's own of the same name.
SET BUILTIN_ALIAS_OVERRIDE TRUE;

-- H2's CONVERT lacks the style argument, which makes a date dd/mm/yyyy.
CREATE ALIAS CONVERT FOR "Shims.convert";

-- H2 does not compare a date with a number. In SQL Server a number of days is a date where one is expected, and today
-- is written so: DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE())). The name of the part is a constant for our own function.
CREATE CONSTANT DD VALUE 'dd';
CREATE ALIAS DATEDIFF FOR "Shims.dateDiff";
