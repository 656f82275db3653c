"""Papers: their parameters, and the PDF beside the form."""
import pathlib
import time

from selenium import webdriver
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.select import Select

from panel_page import DATABASES, FOLDER, PageTest, console


class Papers(PageTest):
    connection = DATABASES['mariadb']

    def setUp(self):
        super().setUp()
        self.script('sessionStorage.clear(); location.hash = "papers"')
        self.until(lambda: self.all('#field-paper'))

    def choose(self, paper):
        Select(self.one('#field-paper')).select_by_value(paper)

    def print(self):
        self.one('main form button.main').click()
        return self.end_of_run()

    def check_same_bytes(self, paper, *arguments):
        """Prints what the form asks for, and compares it with what the console writes."""
        file = pathlib.Path(FOLDER, paper + '.pdf')
        wanted = pathlib.Path(FOLDER, 'paper-console.pdf')
        # A page has the minute in which it is issued: both are written in the same one.
        minute = None
        while minute != time.strftime('%H:%M'):
            minute = time.strftime('%H:%M')
            self.assertEqual(self.print(), 'O PDF está pronto.')
            file.unlink(missing_ok=True)
            self.one('.preview a[download]').click()
            self.until(lambda: file.exists() and file.stat().st_size > 0)
            console('papel', paper, '--conexao', self.connection, '--saida', str(wanted), *arguments)
        self.assertEqual(file.read_bytes(), wanted.read_bytes())

    def test_ShowsTheFilesThatTheConsoleWrites(self):
        self.choose('retirada')
        self.one('#field-CodSolicit').send_keys('1')
        self.check_same_bytes('retirada', '--CodSolicit', '1')
        self.picture('paper')
        self.choose('originais')
        self.assertEqual(self.all('.preview iframe'), [])
        self.one('#field-ListarJaDevolvidos').click()
        self.check_same_bytes('originais', '--ListarJaDevolvidos', 'sim')
        self.choose('modulo')
        self.one('#field-Modulo1').send_keys('AA001')
        self.check_same_bytes('modulo', '--Modulo1', 'AA001')
        self.choose('descarte')
        self.one('#field-Modulo1').send_keys('AA001')
        self.one('#field-organisation').send_keys('Arquivo Público')
        logo = pathlib.Path(FOLDER, 'paper-logo.png')
        self.browser.save_screenshot(str(logo))
        self.one('#field-logo').send_keys(str(logo))
        self.check_same_bytes('descarte', '--Modulo1', 'AA001', '--orgao', 'Arquivo Público', '--logotipo', str(logo))

    def test_SaysWhatIsMissing(self):
        self.choose('retirada')
        self.assertEqual(self.print(), 'o papel retirada precisa do parâmetro CodSolicit')
        self.choose('modulo')
        self.one('#field-Modulo1').send_keys('ZZ999')
        self.assertEqual(self.print(), 'nenhum módulo tem o código "ZZ999"; confira Modulo1')
        large = pathlib.Path(FOLDER, 'large.png')
        large.write_bytes(bytes(200_000))
        self.one('#field-logo').send_keys(str(large))
        self.assertEqual(self.print(), 'A imagem "large.png" passa de 180 KB. Use uma menor.')

    def test_NeedsNoMouse(self):
        self.one('#field-paper').send_keys('Folha de um módulo', Keys.TAB)
        self.assertEqual(self.script('return document.activeElement.id'), 'field-Modulo1')
        webdriver.ActionChains(self.browser).send_keys('AA001', Keys.ENTER).perform()
        self.until(lambda: self.all('.preview a[download]'))
        self.assertEqual(self.status(), 'O PDF está pronto.')

    def test_IsAccessibleInLightAndDarkAndNarrow(self):
        self.choose('modulo')
        self.one('#field-Modulo1').send_keys('AA001')
        self.check_appearance('papers', self.print)
