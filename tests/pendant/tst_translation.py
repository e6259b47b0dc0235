"""Every text of the sources has its Chinese."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDERS = {
    "pendant/language/pendant_cn.ts": ("pendant", "host", "controller", "link", "tools/tlcheck"),
    "resources/language/welmo_cn.ts": ("src",),
    "tl/language/tl_cn.ts": ("tl",),
    "schema/language/schema_cn.ts": ("schema",),
    "book/language/book_cn.ts": ("book",),
}


class Translation(unittest.TestCase):
    def test_every_text_is_translated(self):
        for shipped, folders in FOLDERS.items():
            with self.subTest(shipped), tempfile.TemporaryDirectory() as folder:
                copy = Path(folder, "copy.ts")
                shutil.copyfile(ROOT / shipped, copy)
                # What is new in the sources is added to the copy, unfinished.
                command = [os.environ["LUPDATE"], "-silent", "-locations", "none", "-I", ".", *folders, "-ts", copy]
                subprocess.run(command, cwd=ROOT, check=True)
                text = copy.read_text(encoding="utf-8")
                self.assertGreater(text.count("<source>"), 20)
                missing = re.findall(r'<source>([^<]*)</source>\s*<translation type="unfinished"', text)
                self.assertEqual(missing, [])
                self.assertNotIn('type="unfinished"', text)


if __name__ == "__main__":
    unittest.main()
