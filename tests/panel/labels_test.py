"""Labels: the form, the drawing of the sheet, and the PDF beside it."""
import pathlib

from selenium import webdriver
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.select import Select

from panel_page import FOLDER, PageTest, console


class Labels(PageTest):
    def setUp(self):
        super().setUp()
        self.script('sessionStorage.clear(); location.hash = "labels"')
        self.until(lambda: self.all('#field-kind'))

    def choose(self, name, value):
        Select(self.one(f'#field-{name}')).select_by_value(value)

    def fill(self, name, text):
        field = self.one(f'#field-{name}')
        field.clear()
        field.send_keys(text)

    def print(self):
        self.one('main form button.main').click()
        return self.end_of_run()

    def remarks(self):
        return [item.text for item in self.all('.remarks li')]

    def pdf(self):
        """The bytes of the file that the page shows."""
        return bytes(self.browser.execute_async_script(
            'fetch(document.querySelector(".preview a").href).then(file => file.arrayBuffer())'
            '.then(buffer => arguments[0]([...new Uint8Array(buffer)]), error => arguments[0]([]))'))

    def console_pdf(self, *arguments):
        target = pathlib.Path(FOLDER, 'labels-console.pdf')
        console('etiquetas', *arguments, '--conexao', self.connection, '--saida', str(target))
        return target.read_bytes()

    def download(self):
        """The bytes of the file that the link saves."""
        file = pathlib.Path(FOLDER, 'etiquetas.pdf')
        file.unlink(missing_ok=True)
        self.one('.preview a[download]').click()
        self.until(lambda: file.exists() and file.stat().st_size > 0)
        return file.read_bytes()

    def test_ShowsTheFileThatTheConsoleWrites(self):
        self.choose('kind', 'fechamento')
        self.fill('list', 'AA002\nAA001')
        self.fill('first', 'AA003')
        self.fill('last', 'AA005')
        self.choose('stock', 'a4-3x7')
        self.one('.sheet input[value="5"]').click()
        self.fill('copies', '2')
        self.choose('code', 'qr')
        self.one('#field-outline').click()
        self.fill('shiftX', '0,5')
        self.fill('organisation', 'Arquivo Público')
        self.assertEqual(self.print(), 'O PDF está pronto.')
        self.assertEqual(self.download(), self.console_pdf(
            'fechamento', 'AA002', 'AA001', '--de', 'AA003', '--ate', 'AA005', '--folha', 'a4-3x7', '--primeira', '5',
            '--copias', '2', '--codigo', 'qr', '--contorno', '--ajuste', '0,5;0', '--orgao', 'Arquivo Público'))
        self.assertEqual(self.one('.preview iframe').get_attribute('title'), 'O PDF')
        self.picture('labels')

    def test_PrintsOnASheetWithItsOwnMeasures(self):
        self.choose('stock', 'outra')
        measures = {'labelWidth': '90', 'labelHeight': '80,5', 'columns': '2', 'rows': '3', 'left': '10', 'top': '10',
                    'gapAcross': '5', 'gapDown': '5'}
        for name, value in measures.items():
            self.fill(name, value)
        self.until(lambda: len(self.all('.sheet input')) == 6)
        self.one('.sheet input[value="4"]').click()
        self.fill('list', 'AA001')
        self.print()
        self.assertEqual(self.download(), self.console_pdf(
            'abertura', 'AA001', '--primeira', '4', '--folha-propria',
            'pagina=210x297 colunas=2 linhas=3 etiqueta=90x80,5 margem=10x10 vao=5x5'))

    def test_PrintsOnARollWithALogo(self):
        logo = pathlib.Path(FOLDER, 'logo.png')
        self.browser.save_screenshot(str(logo))
        self.choose('stock', 'rolo')
        self.assertFalse(self.one('.sheet').is_displayed())
        self.fill('labelWidth', '100')
        self.fill('labelHeight', '60')
        self.fill('list', 'AA001')
        self.one('#field-logo').send_keys(str(logo))
        self.assertEqual(self.print(), 'O PDF está pronto.')
        self.assertEqual(self.download(),
                         self.console_pdf('abertura', 'AA001', '--folha', '100x60mm', '--logotipo', str(logo)))

    def test_TakesCodesFromAFile(self):
        file = pathlib.Path(FOLDER, 'codes.txt')
        file.write_text('AA002\r\nAA003\r\n', encoding='utf-8')
        self.fill('list', 'AA001')
        self.one('#field-file').send_keys(str(file))
        self.until(lambda: self.one('#field-list').get_attribute('value').split() == ['AA001', 'AA002', 'AA003'])

    def test_SaysWhatIsMissing(self):
        self.fill('list', 'ZZ999\nAA001')
        self.choose('stock', 'a4-3x8')
        self.assertEqual(self.print(), 'O PDF está pronto.')
        self.assertEqual(self.remarks(), [
            'Sem etiqueta: ZZ999; confira os códigos.',
            'Aviso: na folha a4-3x8, as etiquetas ficam a 0 mm da borda do papel, e muitas impressoras não imprimem a '
            'menos de 4,2 mm; confira com um teste.'])
        self.fill('list', 'ZZ999')
        self.assertEqual(self.print(), 'Não há o que imprimir.')
        self.assertEqual(self.remarks(), ['Sem etiqueta: ZZ999; confira os códigos.', 'Nenhuma etiqueta para imprimir.'])
        self.assertEqual(self.all('.preview iframe'), [])
        self.fill('list', '')
        self.assertEqual(self.print(), 'faltam os códigos: informe-os, ou um intervalo, ou um departamento')

    def test_NeedsNoMouse(self):
        focused = 'return document.activeElement.getAttribute("aria-label")'
        keys = webdriver.ActionChains(self.browser)
        self.fill('list', 'AA001')
        self.one('#field-stock').send_keys(Keys.TAB)
        self.assertEqual(self.script(focused), 'Linha 1, coluna 1')
        keys.send_keys(Keys.ARROW_DOWN, Keys.ARROW_DOWN, Keys.ARROW_RIGHT).perform()
        self.assertEqual(self.script(focused), 'Linha 3, coluna 2')
        keys.send_keys(Keys.ARROW_DOWN, Keys.ARROW_DOWN, Keys.ARROW_UP).perform()
        self.assertEqual(self.script(focused), 'Linha 3, coluna 2')
        self.one('#field-list').send_keys(Keys.TAB)
        self.one('#field-last').send_keys(Keys.ENTER)
        self.assertEqual(self.end_of_run(), 'O PDF está pronto.')
        self.assertEqual(self.download(), self.console_pdf('abertura', 'AA001', '--primeira', '6'))

    def test_KeepsItsValuesForTheSession(self):
        self.choose('kind', 'divisoria')
        self.choose('stock', 'a4-3x8')
        self.fill('list', 'AA001')
        self.one('#field-outline').click()
        self.browser.refresh()
        self.until(lambda: self.all('#field-kind'))
        self.assertEqual(self.one('#field-kind').get_attribute('value'), 'divisoria')
        self.assertEqual(self.one('#field-list').get_attribute('value'), 'AA001')
        self.assertTrue(self.one('#field-outline').is_selected())
        self.assertEqual(len(self.all('.sheet input')), 24)

    def test_IsAccessibleInLightAndDarkAndNarrow(self):
        self.fill('list', 'AA001\nZZ999')
        self.choose('stock', 'outra')
        self.fill('labelWidth', '90')
        self.fill('labelHeight', '50')
        self.check_appearance('labels', self.print)
