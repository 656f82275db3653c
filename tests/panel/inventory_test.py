"""The comparison of scanned codes with the archive."""
import csv
import io
import pathlib
import subprocess

from selenium import webdriver
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.select import Select

from panel_page import FOLDER, PROGRAM, PageTest


class Inventory(PageTest):
    def setUp(self):
        super().setUp()
        self.script('sessionStorage.clear(); location.hash = "inventory"')
        self.until(lambda: self.all('#field-of'))

    def console_rows(self, codes, *arguments):
        result = subprocess.run([PROGRAM, 'confere', '--conexao', self.connection, '--formato', 'csv', *arguments],
                                input='\n'.join(codes).encode(), capture_output=True, check=False)
        return list(csv.reader(io.StringIO(result.stdout.decode())))[1:]

    def begin(self, of, places):
        Select(self.one('#field-of')).select_by_value(of)
        self.one('#field-places').send_keys(places)
        self.press('Começar a leitura')
        self.until(lambda: self.one('#field-code').is_displayed())
        self.until(lambda: self.script('return document.activeElement.id') == 'field-code')

    def scan(self, *codes):
        for code in codes:
            webdriver.ActionChains(self.browser).send_keys(code, Keys.ENTER).perform()

    def said(self):
        return self.one('.said').text

    def codes(self):
        """The codes of the list with what is said of them, the last one first."""
        return [item.text.removesuffix('Tirar').strip() for item in self.all('ol.codes li')]

    def compare(self):
        self.press('Comparar')
        self.until(lambda: self.script('return document.querySelector("#list") !== null') and
                   self.status() in ('Comparado.',))

    def status(self):
        return self.all('main [role=status]')[-1].text

    def test_SaysOfEachCodeAtOnceWhetherItIsExpected(self):
        expected = [row[0] for row in self.console_rows(['-'], '--modulo', 'AA001') if row[1] != 'desconhecido']
        self.begin('documents', 'AA001')
        self.scan(expected[0])
        self.assertEqual(self.said(), f'{expected[0]}: esperado.')
        self.scan('ZZZ')
        self.assertEqual(self.said(), 'ZZZ: não era esperado aqui.')
        self.scan(expected[0])
        self.assertEqual(self.said(), f'{expected[0]}: já foi lido.')
        self.scan('AA001')
        self.assertEqual(self.said(), 'AA001: é o próprio lugar, e não conta.')
        self.assertEqual(self.script('return document.activeElement.id'), 'field-code')
        self.assertEqual(self.codes(), ['AA001: é o próprio lugar, e não conta', 'ZZZ: não era esperado aqui',
                                        f'{expected[0]}: esperado'])
        self.assertIn(f'Lidos: 2. Esperados: {len(expected)}. Esperados e lidos: 1.', self.one('main').text)

    def test_ShowsAndSavesTheRowsThatTheConsoleWrites(self):
        known = [row[0] for row in self.console_rows(['-'], '--modulo', 'AA001') if row[1] != 'desconhecido']
        read = [known[0], 'ZZZ', '0000000499']
        expected = self.console_rows(read, '--modulo', 'AA001')
        self.begin('documents', 'AA001')
        self.scan(*read)
        self.compare()
        self.assertEqual([[cell or '' for cell in row] for row in self.rows()], expected[:len(self.rows())])
        self.assertGreater(len(self.rows()), 2)
        self.assertIn('Módulos AA001 · 1 presente', self.one('main').text)
        self.picture('inventory')
        file = pathlib.Path(FOLDER, 'conferencia.csv')
        file.unlink(missing_ok=True)
        Select(self.one('#field-format')).select_by_value('csv')
        self.press('Baixar')
        self.until(lambda: file.exists() and file.stat().st_size > 0)
        self.assertEqual(list(csv.reader(io.StringIO(file.read_text(encoding='utf-8'))))[1:], expected)

    def test_TakesTheSubordinatesOfAModuleForIt(self):
        module = next(row[0] for row in self.console_rows(['-'], '--conteiner', self.container()))
        self.begin('modules', self.container())
        self.scan(module + '01')
        self.assertEqual(self.said(), f'{module}01: esperado.')

    def container(self):
        result = subprocess.run([PROGRAM, 'executa', 'CContainerRpt.RelatorioContainers', '--conexao', self.connection,
                                 '--formato', 'csv'], capture_output=True, check=True)
        return next(csv.DictReader(io.StringIO(result.stdout.decode())))['NUM_CONTAINER']

    def test_KeepsTheCodesWhenThePageIsReloaded(self):
        self.begin('documents', 'AA001')
        self.scan('ZZZ', 'YYY')
        self.browser.refresh()
        self.until(lambda: self.all('ol.codes') and self.one('#field-code').is_displayed())
        self.assertEqual(self.codes(), ['YYY: não era esperado aqui', 'ZZZ: não era esperado aqui'])
        self.assertEqual(self.one('#field-places').get_attribute('value'), 'AA001')
        self.until(lambda: self.script('return document.activeElement.id') == 'field-code')
        self.one('button[aria-label="Tirar YYY"]').click()
        self.assertEqual(self.codes(), ['ZZZ: não era esperado aqui'])

    def test_TakesAPastedList(self):
        self.begin('documents', 'AA001')
        self.script('document.querySelector("main details").open = true')
        self.script('document.querySelector("#field-pasted").value = "X1\\r\\n\\n X2 \\nX1"')
        self.press('Acrescentar')
        self.assertEqual(self.codes(), ['X2: não era esperado aqui', 'X1: não era esperado aqui'])
        self.press('Apagar os códigos lidos')
        self.assertEqual(self.codes(), [])

    def test_SaysThatAPlaceIsUnknown(self):
        self.one('#field-places').send_keys('ZZ999')
        self.press('Começar a leitura')
        self.until(lambda: self.status() == 'o módulo "ZZ999" não está na relação de módulos do acervo')
        self.assertFalse(self.one('#field-code').is_displayed())

    def test_IsAccessibleInLightAndDarkAndNarrow(self):
        self.begin('documents', 'AA001')
        self.scan('ZZZ', 'AA001')
        self.check_appearance('inventory', self.compare)
