-- What H2 in its mode for Oracle lacks of what the statements use of Oracle.

-- H2 knows DUAL without a schema only. Oracle's one-row table belongs to SYS.
CREATE SCHEMA SYS;
CREATE VIEW SYS.DUAL AS SELECT 'X' AS DUMMY;

-- H2 has no TO_NUMBER. The statements count pages with it.
CREATE ALIAS TO_NUMBER FOR "Shims.toNumber";
