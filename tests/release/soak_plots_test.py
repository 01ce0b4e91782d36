#!/usr/bin/python3
"""scripts/soak_plots.py draws a soak's figures: a chart for each, with as many points as were measured."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts/soak_plots.py"
MINUTES = """second,private_kib,handles,gdi_objects,windows,processor_seconds
60,8000,37,286,160,0.5
120,9000,38,290,160,1.0
180,9500,37,290,160,1.5
"""
DEATHS = """death,1000,map
successor,2000,map,1200
answer,60,15
answer,120,1996
"""


class SoakPlots(unittest.TestCase):
    def test_a_chart_for_each_figure(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "minutes.csv").write_text(MINUTES, "ascii")
            (folder / "deaths.csv").write_text(DEATHS, "ascii")
            subprocess.run([sys.executable, SCRIPT, folder], check=True, stdout=subprocess.DEVNULL)
            drawn = (folder / "soak.svg").read_text("ascii")
        lines = [part.split('"')[0] for part in drawn.split('polyline points="')[1:]]
        self.assertEqual([3, 3, 3, 3, 3, 2], [len(line.split()) for line in lines])
        self.assertIn("longest answer of the window over seconds", drawn)
        self.assertIn("1996 ms", drawn)
        self.assertEqual(6, drawn.count("<rect") - 1)  # Steps of 250 ms up to 1500; one is the background.


if __name__ == "__main__":
    sys.exit(unittest.main())
