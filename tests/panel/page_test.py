"""The page as a whole: its list, its keys, its appearance."""
from selenium import webdriver
from selenium.webdriver.common.keys import Keys

from panel_page import Panel, PageTest


class Page(PageTest):
    def test_HidesTheKeyFromTheAddress(self):
        self.assertNotIn('chave', self.browser.current_url)
        self.assertEqual(self.script('return document.cookie'), '')

    def test_FindsReportsByWordsWithoutAccents(self):
        self.one('#search').send_keys('midias')
        self.until(lambda: self.one('#found').text == '1 relatório.')
        self.assertEqual([link.text for link in self.all('#families a')], ['Mídias, todas ou só as vencidas'])
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

    def test_FitsTheWindowUntilThereAreRows(self):
        for address in ('', 'check', 'connections'):
            self.script('location.hash = arguments[0]', address)
            heights = self.script('const page = document.documentElement; return [page.scrollHeight, page.clientHeight]')
            self.assertEqual(heights[0], heights[1])

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
