"""The memory that the program needs."""
import re
import unittest

from panel_page import DATABASES, Panel
from visitor import Visitor


class Memory(unittest.TestCase):
    def peak(self, database, path, **request):
        """How much memory the program needed at most for a report of this database, in MiB, and the size of the answer."""
        panel = Panel(DATABASES[database])
        answer = Visitor(panel.address).post(path, report='CSuporteRpt.RelatorioSuportes', run='1', **request)
        size = 0
        while piece := answer.read(1 << 16):
            size += len(piece)
        with open(f'/proc/{panel.process.pid}/status', encoding='utf-8') as status:
            peak = int(re.search(r'VmHWM:\s+(\d+)', status.read())[1]) / 1024
        self.assertEqual(panel.end(), 0)
        return peak, size

    def test_IsTheSameForAMillionRowsAsForAThousand(self):
        for path, request in (('/api/run', {}), *(('/api/download', {'format': name}) for name in ('csv', 'json', 'xlsx'))):
            with self.subTest(path=path, **request):
                few, size_of_few = self.peak('few', path, **request)
                many, size_of_many = self.peak('many', path, **request)
                # All rows were there, but the page gets twenty thousand of them at most.
                self.assertGreater(size_of_many, size_of_few * (10 if path == '/api/run' else 100))
                # What SQLite and the sanitizer keep; seventeen bytes for each row would be more.
                self.assertLess(many - few, 16)
