-- What H2 in its mode for SQL Server lacks of what the statements use of SQL Server.

-- Lets the functions below stand in for H2's own of the same name.
SET BUILTIN_ALIAS_OVERRIDE TRUE;

-- H2's CONVERT has no style, which is what gives a date as dd/mm/yyyy.
CREATE ALIAS CONVERT FOR "Shims.convert";

-- H2 compares no date with a number. In SQL Server a number of days is a date where one is wanted, and today is
-- written so: DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE())). The name of the part is a constant for a function of ours.
CREATE CONSTANT DD VALUE 'dd';
CREATE ALIAS DATEDIFF FOR "Shims.dateDiff";
