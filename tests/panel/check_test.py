"""The check of the database."""
from panel_page import DATABASES, PageTest


class CheckPageTest(PageTest):
    def check(self):
        self.script('location.hash = "check"')
        self.until(lambda: self.all('main button.main'))
        self.one('main button.main').click()
        self.until(lambda: self.status() == 'Verificado.')


class Check(CheckPageTest):
    def test_ChecksTheDatabase(self):
        self.check()
        self.assertIn('O banco tem tudo de que os relatórios precisam (sqlite).', self.one('main').text)
        self.picture('check')


class CheckOfOneTable(CheckPageTest):
    """A database that has one of the tables: the reports of the others have problems."""
    connection = DATABASES['hostile']

    def test_ListsWhatIsMissing(self):
        self.check()
        self.assertEqual(self.one('main p.bad').text, 'O banco não tem tudo de que os relatórios precisam (sqlite).')
        self.assertIn('Prontos, sem ressalvas: 1 de 39 relatórios.', self.one('main').text)
        self.assertEqual(self.one('main section h2').text, 'Relatórios com problemas (38)')
        items = [item.text for item in self.all('main section:first-of-type > ul > li')]
        self.assertEqual(len(items), 38)
        self.assertIn('CDeptoRpt.RelatorioDeptos\nfalta: tabela DEPTO', items)
