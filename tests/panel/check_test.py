"""The check of the database."""
from panel_page import PageTest


class Check(PageTest):
    def test_ChecksTheDatabase(self):
        self.script('location.hash = "check"')
        self.until(lambda: self.all('main button.main'))
        self.one('main button.main').click()
        self.until(lambda: self.status() == 'Verificado.')
        self.assertIn('O banco tem tudo de que os relatórios precisam (sqlite).', self.one('main').text)
        self.picture('check')
