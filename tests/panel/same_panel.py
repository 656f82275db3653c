#!/usr/bin/env python3
"""Compares what two programs for different systems serve in the browser.

same_panel.py CONNECTION PROGRAM… -- PROGRAM…: both programs, each by its command line, serve the same database; each
answer must have the same bytes. Prints what differs; the exit code is 0 if nothing does.
"""
import os
import pathlib
import signal
import subprocess
import sys

# The test writes nothing into its folder.
sys.dont_write_bytecode = True
from visitor import Visitor  # noqa: E402

PAGE = pathlib.Path(__file__).parents[2] / 'console/panel/page'
REPORTS = ('CDeptoRpt.RelatorioDeptos', 'CDocumentoRpt.RelatorioAnalitico')
# Of what is not there.
STATUS = {'/nada': 404, 'unknown': 422}


class Panel:
    """A program that serves the panel, in a process group that gets Ctrl-C as in a terminal."""

    def __init__(self, command, connection):
        self.process = subprocess.Popen([*command, 'painel', '--sem-navegador', '--conexao', connection],
                                        stdout=subprocess.PIPE, text=True, start_new_session=True)
        self.visitor = Visitor(self.process.stdout.readline().strip())

    def answers(self):
        """All answers by what was asked."""
        found = {}

        def keep(what, answer):
            found[what] = answer.status, answer.getheader('Content-Type'), answer.read()

        files = [f'/{file.name}' for file in PAGE.iterdir() if file.name != 'index.html']
        for path in ('/', *files, '/api/catalogue', '/api/connections', '/nada'):
            keep(path, self.visitor.get(path))
        for report in REPORTS:
            keep(f'run {report}', self.visitor.post('/api/run', report=report, run='1'))
            for ending in ('csv', 'json'):
                keep(f'{ending} {report}', self.visitor.post('/api/download', report=report, run='1', format=ending))
            keep(f'sql {report}', self.visitor.post('/api/sql', report=report, database='oracle'))
        keep('check', self.visitor.post('/api/check', run='1'))
        keep('unknown', self.visitor.post('/api/run', report=REPORTS[0], run='1', connection='outro'))
        return found

    def end(self):
        os.killpg(self.process.pid, signal.SIGINT)
        code = self.process.wait(60)
        self.process.stdout.close()
        return code


def main():
    connection, *commands = sys.argv[1:]
    split = commands.index('--')
    first, second = (Panel(command, connection) for command in (commands[:split], commands[split + 1:]))
    one, other = first.answers(), second.answers()
    wrong = [f'{what}: {str(one[what])[:200]} e {str(other[what])[:200]}' for what in one if one[what] != other[what]]
    wrong += [f'{what}: {answer[0]}' for what, answer in one.items() if answer[0] != STATUS.get(what, 200) or not answer[2]]
    codes = first.end(), second.end()
    if codes != (0, 0):
        wrong.append(f'códigos de saída: {codes}')
    print('\n'.join(wrong))
    return len(wrong) > 0


if __name__ == '__main__':
    sys.exit(main())
