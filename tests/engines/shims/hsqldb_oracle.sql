-- The parts of Oracle that the statements use and HSQLDB in its mode for Oracle lacks.

-- HSQLDB knows DUAL only without a schema. Oracle's one-row table belongs to SYS.
CREATE SCHEMA SYS;
CREATE TABLE SYS.DUAL (DUMMY VARCHAR(1));
INSERT INTO SYS.DUAL VALUES ('X');
