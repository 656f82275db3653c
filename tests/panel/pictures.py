#!/usr/bin/env python3
"""Makes the pictures of the guide, in docs/panel: pictures.py PROGRAM AXE FOLDER NAME=CONNECTION…, as run.py.

The database is the sample archive. KODRA_FILTER names some of the pictures.
"""
import os
import pathlib
import sys
import time

# The tests' folder gets no files.
sys.dont_write_bytecode = True
from panel_page import DATABASES, Panel, PageTest, new_browser, write_profiles  # noqa: E402
from small_png import small  # noqa: E402

DOCS = pathlib.Path(__file__).parents[2] / 'docs/panel'
LARGEST = 60 * 1024


def fill(values):
    """Fills the form of a report and runs it."""
    def prepare(page):
        for name, value in values.items():
            page.script('document.getElementById(arguments[0]).value = arguments[1]', f'field-{name}', value)
        page.execute()
    return prepare


def press(words, end):
    """Presses a button and waits until the page says something."""
    def prepare(page):
        page.press(words)
        page.until(lambda: end in page.one('main').text)
    return prepare


def make_pdf(values, sight=None):
    """Fills a page that prints, waits until the browser has drawn the file, and brings a field into sight."""
    def prepare(page):
        for selector, value in values.items():
            page.script('const field = document.querySelector(arguments[0]); field.value = arguments[1];'
                        'field.dispatchEvent(new Event("change", {bubbles: true}))', selector, value)
        press('Preparar o PDF', 'O PDF está pronto.')(page)
        page.script('scrollTo(0, 0)')
        time.sleep(3)
        if sight:
            page.script('document.querySelector(arguments[0]).scrollIntoView()', sight)
    return prepare


def scan(page):
    page.script('document.querySelector("#field-places").value = "AA001"')
    press('Começar a leitura', 'Lidos: 0.')(page)
    for code in ('0000000001', 'AA00101'):
        page.script('document.querySelector("#field-code").value = arguments[0];'
                    'document.querySelector("#field-code").form.requestSubmit()', code)


COUNTS = {'NumeroPC1': '1200', 'NumeroPC2': '340', 'NumeroPC3': '87', 'NumeroPC4': '333', 'NumeroPC5': '12', 'NumeroObs': '45'}

# The width of the pictures; those of pages that show a PDF beside their form are wider.
WIDTH = 1030
WIDE = {'labels': 1320, 'papers': 1320}

# Each picture: its file, the address, what is done there, and whether it is dark.
PICTURES = (
    ('list', 'reports', None, False),
    # A form without dates, which a browser of another language would show in its own way.
    ('form', 'CCaixaRpt.RelatoriosModulos', None, False),
    ('rows', 'CDocumentoRpt.RelatorioSintetico', fill({'CodDepto': '001'}), False),
    ('statistic', 'CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave', fill(COUNTS), False),
    ('labels', 'labels', make_pdf({'#field-list': 'AA001\nAA002\nAA003', '#field-stock': 'a4-2x7'}, '#field-stock'), False),
    ('papers', 'papers', make_pdf({'#field-paper': 'modulo', '#field-Modulo1': 'AA001'}), False),
    ('inventory', 'inventory', scan, False),
    ('check', 'check', press('Verificar', 'Verificado.'), False),
    ('dark', 'CDocumentoRpt.RelatorioSintetico', fill({'CodDepto': '001'}), True),
)


def take(page, name, address, prepare, is_dark):
    page.browser.execute_cdp_cmd('Emulation.setDeviceMetricsOverride', {
        'width': WIDE.get(name, WIDTH), 'height': 600, 'deviceScaleFactor': 1, 'mobile': False})
    page.browser.execute_cdp_cmd('Emulation.setEmulatedMedia', {
        'features': [{'name': 'prefers-color-scheme', 'value': 'dark' if is_dark else 'light'}]})
    # Each picture has a page of its own, with empty forms.
    page.script('sessionStorage.clear(); location.hash = arguments[0]; location.reload()', address)
    page.until(lambda: page.all('main h1'))
    if prepare:
        prepare(page)
    picture = small(page.browser.get_screenshot_as_png())
    (DOCS / f'{name}.png').write_bytes(picture)
    print(f'docs/panel/{name}.png: {len(picture)} bytes')
    return len(picture) <= LARGEST


def main():
    DOCS.mkdir(exist_ok=True)
    write_profiles({'acervo': f'conexao = {DATABASES["sqlite"]}'})
    page = PageTest()
    page.browser = new_browser()
    page.panel = Panel(None, '--perfil', 'acervo')
    names = os.environ.get('KODRA_FILTER', '').split()
    try:
        page.browser.get(page.panel.address)
        return all([take(page, *picture) for picture in PICTURES if not names or picture[0] in names])
    finally:
        page.browser.quit()
        page.panel.end()


if __name__ == '__main__':
    sys.exit(not main())
