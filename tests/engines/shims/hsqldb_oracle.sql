-- What HSQLDB in its mode for Oracle lacks of what the statements use of Oracle.

-- HSQLDB knows DUAL without a schema only. Oracle's one-row table belongs to SYS.
CREATE SCHEMA SYS;
CREATE TABLE SYS.DUAL (DUMMY VARCHAR(1));
INSERT INTO SYS.DUAL VALUES ('X');
