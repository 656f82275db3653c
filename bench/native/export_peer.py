# The peer of export_peer: the rows of RelatorioSintetico as CSV, with the modules that come with Python.
#
#   python3 export_peer.py ARCHIVE TARGET
import csv
import sqlite3
import sys

archive, target = sys.argv[1:]
with sqlite3.connect(archive) as connection, open(target, "w", newline="", encoding="utf-8") as file:
    rows = connection.execute(
        "SELECT d.COD_DOCTO, s.DESCR_SUPORTE, d.NUM_CAIXA, d.NUM_CD, d.DT_ARMAZ, d.DT_VENC, d.FRENTE, d.VERSO "
        "FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE ORDER BY d.COD_DOCTO"
    )
    writer = csv.writer(file)
    writer.writerow(column[0] for column in rows.description)
    writer.writerows(rows)
