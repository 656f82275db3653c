"""What the tests of the page share: the program, a headless Chromium, and a test that has both.

The arguments are those of run.py.
"""
import os
import pathlib
import subprocess
import sys
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.wait import WebDriverWait

PROGRAM, AXE, FOLDER = sys.argv[1:4]
DATABASES = dict(argument.split('=', 1) for argument in sys.argv[4:])
PATIENCE = 60


# The settings of a user, in which a test may write profiles.
SETTINGS = os.path.join(FOLDER, 'settings')


def write_profiles(profiles):
    """Replaces the user's profiles by these: name, lines."""
    folder = pathlib.Path(SETTINGS, 'kodrarpt')
    folder.mkdir(0o700, parents=True, exist_ok=True)
    file = folder / 'perfis.ini'
    file.write_text(''.join(f'[{name}]\n{lines}\n' for name, lines in profiles.items()), encoding='utf-8')
    file.chmod(0o600)


class Panel:
    """The program, serving one database, or without one the user's profiles."""

    def __init__(self, connection, *options):
        named = ['--conexao', connection] if connection else []
        self.process = subprocess.Popen([PROGRAM, 'painel', '--sem-navegador', *named, *options],
                                        stdout=subprocess.PIPE, text=True, env={**os.environ, 'XDG_CONFIG_HOME': SETTINGS})
        self.address = self.process.stdout.readline().strip()

    def end(self):
        self.process.send_signal(2)
        code = self.process.wait(PATIENCE)
        self.process.stdout.close()
        return code


def console(*arguments):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, check=False,
                          env={**os.environ, 'XDG_CONFIG_HOME': SETTINGS})


def new_browser():
    options = webdriver.ChromeOptions()
    # Without a sandbox, as root has none; without the requests that a browser makes of its own accord.
    for argument in ('--headless=new', '--no-sandbox', '--disable-gpu', '--disable-dev-shm-usage', '--lang=pt-BR',
                     '--disable-background-networking', '--disable-component-update', '--disable-lcd-text',
                     '--window-size=1280,900'):
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

    def allow_clipboard(self):
        self.browser.execute_cdp_cmd('Browser.grantPermissions',
                                     {'permissions': ['clipboardReadWrite', 'clipboardSanitizedWrite']})

    def clipboard(self):
        return self.browser.execute_async_script('navigator.clipboard.readText().then(arguments[0])')

    def picture(self, name):
        self.browser.save_screenshot(os.path.join(FOLDER, name + '.png'))

    def check_appearance(self, name, act):
        """Does something on the page in light, in dark and at 400 %, and looks for violations and for a page that is too wide."""
        self.assertEqual(self.violations(), [])
        for scheme in ('light', 'dark'):
            self.browser.execute_cdp_cmd(
                'Emulation.setEmulatedMedia', {'features': [{'name': 'prefers-color-scheme', 'value': scheme}]})
            act()
            self.assertEqual(self.violations(), [])
            self.picture(f'{scheme}-{name}')
        # A window of 1280 pixels at 200 % is one of 640 at 100 %, and at 400 % one of 320.
        for width in (640, 320):
            self.browser.execute_cdp_cmd('Emulation.setDeviceMetricsOverride',
                                         {'width': width, 'height': 700, 'deviceScaleFactor': 2, 'mobile': False})
            act()
            self.picture(f'width-{width}-{name}')
            widths = self.script('const page = document.documentElement; return [page.scrollWidth, page.clientWidth]')
            self.assertLessEqual(widths[0], widths[1])
        self.browser.execute_cdp_cmd('Emulation.clearDeviceMetricsOverride', {})
