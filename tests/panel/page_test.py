#!/usr/bin/env python3
"""Drives the page of `kodrarpt painel` in a headless Chromium.

page_test.py PROGRAM AXE FOLDER NAME=CONNECTION…: the program, the script of axe-core, a folder for downloads and
screenshots, and the databases by name. The tests print their outcomes in GoogleTest's form.
"""
import csv
import io
import os
import pathlib
import re
import subprocess
import sys
import time
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.wait import WebDriverWait

PROGRAM, AXE, FOLDER = sys.argv[1:4]
DATABASES = dict(argument.split('=', 1) for argument in sys.argv[4:])
PATIENCE = 60


class Panel:
    """The program, serving one database."""

    def __init__(self, connection, *options):
        self.process = subprocess.Popen(
            [PROGRAM, 'painel', '--sem-navegador', '--conexao', connection, *options], stdout=subprocess.PIPE, text=True)
        self.address = self.process.stdout.readline().strip()

    def end(self):
        self.process.send_signal(2)
        code = self.process.wait(PATIENCE)
        self.process.stdout.close()
        return code


def console(*arguments):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, check=False)


def new_browser():
    options = webdriver.ChromeOptions()
    # Without a sandbox, as root has none; without the requests that a browser makes of its own accord.
    for argument in ('--headless=new', '--no-sandbox', '--disable-gpu', '--disable-dev-shm-usage', '--lang=pt-BR',
                     '--disable-background-networking', '--disable-component-update', '--window-size=1280,900'):
        options.add_argument(argument)
    options.add_experimental_option('prefs', {'download.default_directory': FOLDER})
    options.set_capability('goog:loggingPrefs', {'browser': 'ALL'})
    return webdriver.Chrome(service=Service('/usr/bin/chromedriver'), options=options)


class PageTest(unittest.TestCase):
    browser = None
    connection = DATABASES['sqlite']

    @classmethod
    def setUpClass(cls):
        cls.browser = new_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def setUp(self):
        self.panel = Panel(self.connection)
        self.browser.get(self.panel.address)
        self.until(lambda: self.all('#families a'))

    def tearDown(self):
        # Nothing that the page is not allowed to load or run.
        refused = [entry['message'] for entry in self.browser.get_log('browser') if 'Content Security' in entry['message']]
        self.assertEqual(self.panel.end(), 0)
        self.assertEqual(refused, [])

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def until(self, condition):
        return WebDriverWait(self.browser, PATIENCE, 0.05).until(lambda _: condition())

    def script(self, text, *arguments):
        return self.browser.execute_script(text, *arguments)

    def go(self, name):
        self.script('location.hash = arguments[0]', name)
        self.until(lambda: self.all('main .soft') and self.one('main .soft').text == name)

    def status(self):
        return self.one('main [role=status]').text

    def press(self, words):
        next(button for button in self.all('main button') if button.text == words).click()

    def execute(self):
        """Runs the report and returns the status at its end."""
        self.one('main form button.main').click()
        return self.end_of_run()

    def end_of_run(self):
        self.until(lambda: self.one('main form button.main').is_enabled())
        return self.status()

    def rows(self):
        """The rows in sight, without their numbers."""
        return self.script('return [...document.querySelectorAll(".rows tbody tr:not(.space)")].map(row => '
                           '[...row.children].slice(1).map(cell => cell.textContent))')

    def violations(self):
        """What axe-core finds wrong on the page as it is."""
        self.browser.execute_cdp_cmd('Page.setBypassCSP', {'enabled': True})
        self.script(pathlib.Path(AXE).read_text(encoding='utf-8'))
        found = self.browser.execute_async_script('axe.run().then(arguments[0])')
        return [(item['id'], [node['html'][:120] for node in item['nodes']]) for item in found['violations']]

    def picture(self, name):
        self.browser.save_screenshot(os.path.join(FOLDER, name + '.png'))


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
        for shown, row in zip(self.rows(), expected):
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


class Page(PageTest):
    def test_HidesTheKeyFromTheAddress(self):
        self.assertNotIn('chave', self.browser.current_url)
        self.assertEqual(self.script('return document.cookie'), '')

    def test_FindsReportsByWordsWithoutAccents(self):
        self.one('#search').send_keys('midias')
        self.until(lambda: self.one('#found').text == '1 relatório.')
        self.assertEqual([link.text for link in self.all('#families a')], ['As mídias, todas ou só as vencidas'])
        self.one('#search').send_keys('xyz')
        self.until(lambda: self.one('#found').text == 'Nenhum relatório.')

    def test_NeedsNoMouse(self):
        keys = webdriver.ActionChains(self.browser)
        self.one('#search').send_keys('documentos em resumo', Keys.TAB)
        keys.send_keys(Keys.ENTER).perform()
        self.until(lambda: self.all('main form'))
        # The page that opens has the focus; its first field follows.
        focused = 'return document.activeElement.id'
        self.until(lambda: self.script(focused) == 'main')
        self.one('main').send_keys(Keys.TAB)
        self.assertEqual(self.script(focused), 'field-DataArmazenamento1')
        self.one('#field-CodDepto').send_keys('001', Keys.ENTER)
        self.until(lambda: 'registros.' in self.status())
        button = self.one('.rows td button')
        button.send_keys(Keys.ENTER)
        self.until(lambda: self.one('dialog').is_displayed())
        self.assertIn('0000000', self.one('dialog dd').text)
        webdriver.ActionChains(self.browser).send_keys(Keys.ESCAPE).perform()
        self.until(lambda: not self.one('dialog').is_displayed())
        self.assertEqual(self.script('return document.activeElement.dataset.row'), '0')

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
        self.assertIn('Filtros: Departamento XYZ', self.one('main').text)

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

    def test_ChecksTheDatabase(self):
        self.script('location.hash = "check"')
        self.until(lambda: self.all('main button.main'))
        self.one('main button.main').click()
        self.until(lambda: self.status() == 'Verificado.')
        self.assertIn('O banco tem tudo de que os relatórios precisam (sqlite).', self.one('main').text)
        self.picture('check')

    def test_SaysThatTheProgramHasEnded(self):
        self.go('CDeptoRpt.RelatorioDeptos')
        self.panel.end()
        self.assertEqual(self.execute(), 'O kodrarpt não responde mais: ele terminou, ou foi encerrado. Execute-o de novo.')
        self.panel = Panel(self.connection)

    def test_IsAccessibleInLightAndDark(self):
        for scheme in ('light', 'dark'):
            self.browser.execute_cdp_cmd(
                'Emulation.setEmulatedMedia', {'features': [{'name': 'prefers-color-scheme', 'value': scheme}]})
            self.script('location.hash = ""')
            self.assertEqual(self.violations(), [])
            self.picture(f'{scheme}-start')
            self.go('CDocumentoRpt.RelatorioSintetico')
            self.execute()
            self.script('document.querySelectorAll("main details").forEach(each => { each.open = true; })')
            self.assertEqual(self.violations(), [])
            self.picture(f'{scheme}-rows')
            self.one('.rows td button').click()
            self.assertEqual(self.violations(), [])
            self.picture(f'{scheme}-row')

    def test_FitsANarrowWindowAndTwiceTheSize(self):
        # A window of 1280 pixels at 400 % is one of 320 at 100 %.
        for width in (640, 320):
            self.browser.execute_cdp_cmd('Emulation.setDeviceMetricsOverride',
                                         {'width': width, 'height': 450, 'deviceScaleFactor': 2, 'mobile': False})
            self.go('CDocumentoRpt.RelatorioSintetico')
            self.execute()
            self.picture(f'width-{width}')
            widths = self.script('const page = document.documentElement; return [page.scrollWidth, page.clientWidth]')
            self.assertLessEqual(widths[0], widths[1])
            self.script('location.hash = "reports"')
        self.browser.execute_cdp_cmd('Emulation.clearDeviceMetricsOverride', {})


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

    def memory(self):
        with open(f'/proc/{self.panel.process.pid}/status', encoding='utf-8') as status:
            return int(re.search(r'VmRSS:\s+(\d+)', status.read())[1]) // 1024

    def test_GrowsNeitherTheProgramNorThePage(self):
        self.go('CSuporteRpt.RelatorioSuportes')
        before = self.memory()
        status = self.execute()
        self.assertEqual(status, '1.000.000 registros. Aparecem os primeiros 20.000; baixe o arquivo para ter todos.')
        self.assertLess(self.memory() - before, 60)
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


class Outcome(unittest.TextTestResult):
    """Prints each outcome as GoogleTest does, a failed part of a test as a failure of the test."""

    def stopTest(self, test):
        super().stopTest(test)
        failed = [words for failed, words in self.failures + self.errors
                  if failed is test or getattr(failed, 'test_case', None) is test]
        name = f'panel.{type(test).__name__}.{test._testMethodName.removeprefix("test_")}'
        print('\n'.join(failed) + f'[{"  FAILED  " if failed else "       OK "}] {name} (0 ms)', flush=True)


if __name__ == '__main__':
    runner = unittest.TextTestRunner(stream=open(os.devnull, 'w', encoding='utf-8'), resultclass=Outcome)
    filters = os.environ.get('KODRA_FILTER', '')
    suite = unittest.defaultTestLoader.loadTestsFromModule(sys.modules['__main__'])
    if filters:
        suite = unittest.defaultTestLoader.loadTestsFromNames(filters.split(), sys.modules['__main__'])
    sys.exit(not runner.run(suite).wasSuccessful())
