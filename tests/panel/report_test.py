"""The page of a report: its form, its rows, its files and its statements."""
import csv
import io
import pathlib
import re
import time

from selenium.webdriver.common.keys import Keys

from panel_page import DATABASES, FOLDER, PageTest, console


class EveryReport(PageTest):
    """Each report with the sample values of its guide, against `kodrarpt executa` with the same."""

    def check_every_report(self):
        catalogue = self.browser.execute_async_script(
            'fetch("/api/catalogue").then(answer => answer.json()).then(arguments[0])')
        reports = [report for family in catalogue['families'] for report in family['reports']]
        self.assertEqual(len(reports), 39)
        for report in reports:
            with self.subTest(report['name']):
                self.check_report(report)

    def check_report(self, report):
        self.go(report['name'])
        self.script('sessionStorage.clear()')
        arguments = []
        for parameter in report['parameters']:
            self.fill(parameter)
            arguments += ['--' + parameter['name'], parameter['sample']]
        status = self.execute()
        result = console('executa', report['name'], '--conexao', self.connection, '--formato', 'csv', '--excel',
                         '--detalhes', *arguments)
        if result.returncode != 0:
            self.assertEqual(status, result.stderr.decode().replace('kodrarpt: ', '').strip())
            return
        expected = list(csv.reader(io.StringIO(result.stdout.decode('utf-8-sig')), delimiter=';'))[1:]
        count = len(expected)
        words = 'Nenhum registro.' if count == 0 else '1 registro.' if count == 1 else f'{count:,} registros.'.replace(',', '.')
        self.assertEqual(status, words)
        rows = self.rows()
        self.assertGreaterEqual(len(rows), min(count, 10))
        for shown, row in zip(rows, expected):
            # The spreadsheet's text is marked where it could be taken for a formula.
            self.assertEqual(shown, [re.sub(r"^'(?=[=+@\t\r-])", '', cell) for cell in row])

    def fill(self, parameter):
        field = self.one(f'#field-{parameter["name"]}')
        sample = parameter['sample']
        if parameter['type'] == 'flag':
            if (sample == 'sim') != field.is_selected():
                field.click()
        elif parameter['type'] == 'date':
            day, month, year = sample.split('/')
            self.script('arguments[0].value = arguments[1]', field, f'{year}-{month}-{day}')
        else:
            self.script('arguments[0].value = arguments[1]', field, sample)


class EveryReportOnSqlite(EveryReport):
    def test_ShowsTheRowsThatTheConsoleWrites(self):
        self.check_every_report()


class EveryReportOnMariaDb(EveryReport):
    connection = DATABASES['mariadb']

    def test_ShowsTheRowsThatTheConsoleWrites(self):
        self.check_every_report()


class Report(PageTest):
    def test_HidesColumns(self):
        self.go('CDocumentoRpt.RelatorioSintetico')
        self.execute()
        heads = 'return [...document.querySelectorAll(".rows th")].map(head => head.textContent)'
        self.assertEqual(self.script(heads)[:3], ['Linha', 'Documento', 'Suporte'])
        self.script('document.querySelector(".checks input").click()')
        self.assertEqual(self.script(heads)[:2], ['Linha', 'Suporte'])

    def test_KeepsTheLastValuesOfAForm(self):
        self.go('CDocumentoRpt.RelatorioSintetico')
        self.one('#field-CodDepto').send_keys('001')
        self.execute()
        self.go('CDeptoRpt.RelatorioDeptos')
        self.go('CDocumentoRpt.RelatorioSintetico')
        self.assertEqual(self.one('#field-CodDepto').get_attribute('value'), '001')

    def test_SaysWithWhichFiltersNothingWasFound(self):
        self.go('CDocumentoRpt.RelatorioSintetico')
        self.one('#field-CodDepto').send_keys('XYZ')
        self.assertEqual(self.execute(), 'Nenhum registro.')
        self.assertIn('Filtros: Departamento XYZ\nNenhum departamento tem o código "XYZ".', self.one('main').text)

    def test_BringsItsRowsIntoSightButNotTheFocus(self):
        self.go('CDocumentoRpt.RelatorioSintetico')
        self.one('#field-CodDepto').send_keys('001', Keys.ENTER)
        self.end_of_run()
        place = 'const box = document.querySelector(arguments[0]).getBoundingClientRect(); return [box.top, box.bottom]'
        top, bottom = self.script(place, '.rows')
        self.assertGreater(top, self.script(place, 'header')[1])
        self.assertLess(top, self.script('return innerHeight') / 3)
        self.assertLess(self.script(place, '.scroll')[1], self.script('return innerHeight'))
        self.assertEqual(self.script('return document.activeElement.id'), 'field-CodDepto')

    def test_StaysWhereTheUserScrollsDuringTheRun(self):
        self.browser.execute_cdp_cmd('Emulation.setDeviceMetricsOverride',
                                     {'width': 1280, 'height': 400, 'deviceScaleFactor': 1, 'mobile': False})
        self.addCleanup(self.browser.execute_cdp_cmd, 'Emulation.clearDeviceMetricsOverride', {})
        self.go('CDocumentoRpt.RelatorioSintetico')
        self.script('document.querySelector("main form").requestSubmit(); scrollTo(0, 10)')
        self.assertIn('registros.', self.end_of_run())
        self.assertEqual(self.script('return scrollY'), 10)

    def test_DownloadsTheBytesThatTheConsoleWrites(self):
        self.go('CDeptoRpt.RelatorioDeptos')
        for value, ending, options in (('csv', 'csv', []), ('excel', 'csv', ['--excel']), ('json', 'json', []),
                                       ('pdf', 'pdf', [])):
            with self.subTest(value):
                file = pathlib.Path(FOLDER, 'CDeptoRpt.RelatorioDeptos.' + ending)
                file.unlink(missing_ok=True)
                wanted = pathlib.Path(FOLDER, 'console.' + ending)
                # A page has the minute in which it is issued: both are written in the same one.
                minute = None
                while minute != time.strftime('%H:%M'):
                    minute = time.strftime('%H:%M')
                    file.unlink(missing_ok=True)
                    self.script('document.querySelector("#format").value = arguments[0]', value)
                    self.press('Baixar')
                    self.until(file.exists)
                    console('executa', 'CDeptoRpt', '--conexao', self.connection, '--saida', str(wanted), *options)
                self.assertEqual(file.read_bytes(), wanted.read_bytes())

    def test_ShowsTheStatementsOfADatabase(self):
        self.go('CSuporteRpt.RelatorioSuportes')
        self.script('document.querySelectorAll("main details").forEach(each => { each.open = true; })')
        self.press('Mostrar')
        self.until(lambda: self.all('pre'))
        expected = console('sql', 'CSuporteRpt', '--banco', 'oracle', '--bonito').stdout.decode().rstrip('\n')
        self.assertEqual(self.one('pre').get_attribute('textContent'), expected)
        self.allow_clipboard()
        self.press('Copiar a instrução')
        self.until(lambda: 'Copiada.' in self.one('main').text)
        self.assertEqual(self.clipboard(), expected)


class StatisticOnMariaDb(PageTest):
    connection = DATABASES['mariadb']

    def test_HasTotalsAndAChart(self):
        self.go('CEstatSuporteRpt.RelatorioEstatisticas')
        for name, value in (('DataInicial', '2000-01-01'), ('DataFinal', '2030-12-31')):
            self.script('document.getElementById(arguments[0]).value = arguments[1]', f'field-{name}', value)
        self.assertIn('registro', self.execute())
        self.assertEqual(self.one('.sums tbody tr:last-child th').text, 'Total geral')
        self.assertGreater(len(self.all('.chart .bar')), 1)
        self.assertEqual(self.violations(), [])
        self.picture('statistic')


class Hostile(PageTest):
    """A database full of markup."""
    connection = DATABASES['hostile']

    def test_ShowsMarkupAsText(self):
        self.go('CSuporteRpt.RelatorioSuportes')
        self.assertEqual(self.execute(), '2 registros.')
        self.assertEqual(self.rows()[0], ['<img src=x onerror="document.title=1"><script>document.title=2</script>'])
        self.assertEqual(self.all('main img, main script'), [])
        self.assertTrue(self.script('return document.title').endswith('kodrarpt'))


class Many(PageTest):
    """A report of a million rows."""
    connection = DATABASES['many']

    def test_DoesNotGrowThePage(self):
        self.go('CSuporteRpt.RelatorioSuportes')
        status = self.execute()
        self.assertEqual(status, '1.000.000 registros. Aparecem os primeiros 20.000.')
        self.assertIn('Baixar o arquivo com todos os registros', [button.text for button in self.all('main button')])
        self.assertLess(len(self.all('.rows tr')), 120)
        self.script('const s = document.querySelector(".rows").parentElement; s.scrollTop = s.scrollHeight')
        self.until(lambda: self.all('[data-row="19999"]'))
        self.assertLess(self.script('return performance.memory.usedJSHeapSize') >> 20, 60)

    def test_StopsWhenItIsCancelled(self):
        self.go('CSuporteRpt.RelatorioSuportes')
        self.one('main form button.main').click()
        self.until(lambda: 'até agora' in self.status())
        self.press('Cancelar')
        self.assertIn('Cancelado.', self.end_of_run())
