-- The parts of Oracle that the statements use and H2 in its mode for Oracle lacks.

-- H2 knows DUAL only without a schema. Oracle's one-row table belongs to SYS.
CREATE SCHEMA SYS;
CREATE VIEW SYS.DUAL AS SELECT 'X' AS DUMMY;

-- H2 has no TO_NUMBER. The statements count pages with it.
CREATE ALIAS TO_NUMBER FOR "Shims.toNumber";
