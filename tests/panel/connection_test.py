"""The choice of the archive."""
import re

from panel_page import DATABASES, Panel, PageTest, console, write_profiles


def without_time(words):
    return re.sub(r'em \d+ ms', 'em N ms', words)


class Connection(PageTest):
    connection = None

    def setUp(self):
        write_profiles({'acervo': f'conexao = {DATABASES["sqlite"]}', 'outro': f'conexao = {DATABASES["hostile"]}',
                        'cofre': 'conexao = DSN=Cofre\npergunta-senha = sim'})
        super().setUp()

    def tearDown(self):
        super().tearDown()
        write_profiles({})

    def archive(self):
        return self.one('#archive').text

    def press_of(self, profile, words):
        """Presses a button of a profile."""
        self.one(f'main button[aria-label="{words} {profile}"]').click()

    def test_IsAskedForBeforeAnythingElse(self):
        self.assertEqual(self.one('h1').text, 'Escolher o acervo')
        self.assertEqual(self.archive(), 'nenhum')
        self.script('location.hash = "CSuporteRpt.RelatorioSuportes"')
        self.assertEqual(self.one('h1').text, 'Escolher o acervo')
        self.press_of('acervo', 'Usar')
        self.until(lambda: self.one('h1').text == 'Suportes dos documentos')
        self.assertEqual(self.archive(), 'acervo')
        self.assertEqual(self.script('return document.title'), 'Suportes dos documentos – acervo: acervo – kodrarpt')

    def test_HoldsForEveryRunOfTheTab(self):
        self.press_of('acervo', 'Usar')
        self.go('CSuporteRpt.RelatorioSuportes')
        rows = console('executa', 'CSuporteRpt', '--conexao', DATABASES['sqlite'], '--formato', 'csv').stdout.count(b'\r\n') - 1
        self.assertEqual(self.execute(), f'{rows} registros.')
        self.browser.refresh()
        self.until(lambda: self.all('main form'))
        self.assertEqual(self.archive(), 'acervo')
        self.one('#archive').click()
        self.until(lambda: self.one('h1').text == 'Escolher o acervo')
        self.assertIn('Em uso', self.one('.choices li').text)
        self.press_of('outro', 'Usar')
        self.go('CSuporteRpt.RelatorioSuportes')
        self.assertEqual(self.archive(), 'outro')
        self.assertEqual(self.execute(), '2 registros.')
        self.assertNotEqual(rows, 2)

    def test_IsTestedInTheWordsOfTheConsole(self):
        self.press_of('acervo', 'Testar')
        answer = self.one('.choices pre')
        self.until(lambda: 'dialeto' in answer.get_attribute('textContent'))
        self.assertEqual(without_time(answer.get_attribute('textContent')),
                         without_time(console('perfil', 'testa', 'acervo').stdout.decode()))
        # A test is no choice.
        self.assertEqual(self.archive(), 'nenhum')

    def test_CannotBeAProfileThatAsksForItsPassword(self):
        asks = self.all('.choices li')[2]
        self.assertEqual(asks.text, 'Perfil cofre\nEste perfil pergunta a senha no terminal; para usá-lo aqui, comece com '
                                    'kodrarpt painel --perfil cofre.')

    def test_ShowsTheConnectionOfTheCommandFirst(self):
        self.panel.end()
        self.panel = Panel(DATABASES['hostile'])
        self.browser.get(self.panel.address)
        self.until(lambda: self.archive() == 'a conexão deste comando')
        self.one('#archive').click()
        self.until(lambda: self.all('.choices li'))
        self.assertEqual([title.text for title in self.all('.choices h2')],
                         ['A conexão deste comando', 'Perfil acervo', 'Perfil outro', 'Perfil cofre'])

    def test_IsAccessibleInLightAndDark(self):
        for scheme in ('light', 'dark'):
            self.browser.execute_cdp_cmd(
                'Emulation.setEmulatedMedia', {'features': [{'name': 'prefers-color-scheme', 'value': scheme}]})
            self.press_of('acervo', 'Testar')
            self.until(lambda: 'dialeto' in self.one('.choices pre').text)
            self.assertEqual(self.violations(), [])
            self.picture(f'{scheme}-connections')
