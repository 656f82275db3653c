#!/usr/bin/env python3
"""Drives the page of `kodrarpt painel` in a headless Chromium: all tests in this folder.

run.py PROGRAM AXE FOLDER NAME=CONNECTION…: the program, the script of axe-core, a folder for downloads and screenshots,
and the databases by name. KODRA_FILTER names some of the tests: "page_test.Page report_test.Many". The tests print their
outcomes in GoogleTest's form.
"""
import os
import pathlib
import sys
import unittest

# The tests write nothing into their folder.
sys.dont_write_bytecode = True


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
    names = os.environ.get('KODRA_FILTER', '').split()
    files = sorted(pathlib.Path(__file__).parent.glob('*_test.py'))
    suite = unittest.defaultTestLoader.loadTestsFromNames(names or [file.stem for file in files])
    sys.exit(not runner.run(suite).wasSuccessful())
