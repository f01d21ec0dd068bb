#!/usr/bin/python3
# The HTML report as a real browser renders it: headless Chromium prints the DOM and takes a
# screenshot of the sample's report and of a report of the sample against an edited copy.
# Every table has its plot with one line per row and the right number of points, the record
# fields are there, the differing cells and fields are marked, and the screenshot is not blank.
# Usage: check_report.py EPROMTOOL SAMPLE WORKDIR
import html.parser
import json
import os
import shutil
import subprocess
import sys

tool, sample, work = sys.argv[1:4]
chromium = shutil.which("chromium")
if chromium is None:
    print("SKIPPED: chromium is not installed (apt-get install chromium)")
    sys.exit(0)
shutil.rmtree(work, ignore_errors=True)
os.makedirs(work)
failures = []


def check(condition, what):
    if not condition:
        failures.append(what)


def run(*arguments):
    return subprocess.run([tool, *arguments], capture_output=True, text=True, check=False)


def browse(page, *options):
    profile = os.path.join(work, "profile")
    shutil.rmtree(profile, ignore_errors=True)
    done = subprocess.run(
        [chromium, "--headless", "--no-sandbox", "--disable-gpu", "--disable-background-networking",
         "--no-first-run", "--disable-component-update", "--disable-sync",
         "--user-data-dir=" + profile, *options, "file://" + os.path.abspath(page)],
        capture_output=True, text=True, timeout=120, check=False)
    return done.stdout


class Dom(html.parser.HTMLParser):
    """The tables with their polylines, marks and differing cells, and the field rows."""

    def __init__(self):
        super().__init__()
        self.tables = {}
        self.current = None
        self.fields = {}
        self.field = None

    def handle_starttag(self, tag, attrs):
        a = dict(attrs)
        if tag == "div" and a.get("class") == "table":
            self.current = {"name": a["data-name"], "lines": [], "diff": 0, "marks": 0}
            self.tables[a["data-name"]] = self.current
        elif tag == "polyline" and self.current is not None:
            self.current["lines"].append((int(a["data-points"]), len(a["points"].split())))
        elif tag == "circle" and a.get("class") == "diffmark":
            self.current["marks"] += 1
        elif tag == "td" and a.get("class") == "diff" and self.current is not None:
            self.current["diff"] += 1
        elif tag == "tr" and "data-field" in a:
            self.field = (a["data-field"], a.get("class") == "diff")
            self.fields[self.field] = ""
        elif tag == "section" and a.get("id") == "others":
            self.current = None

    def handle_data(self, data):
        if self.field is not None:
            self.fields[self.field] += data + "|"

    def handle_endtag(self, tag):
        if tag == "tr":
            self.field = None


def dom_of(page):
    dom = Dom()
    dom.feed(browse(page, "--dump-dom"))
    return dom


def not_blank(page, shot):
    import matplotlib.image
    browse(page, "--hide-scrollbars", "--window-size=1200,1600", "--screenshot=" + shot)
    pixels = matplotlib.image.imread(shot)[:, :, :3]
    inked = (pixels.mean(axis=2) < 0.9).mean()
    return pixels.std() > 0.05 and inked > 0.01, inked


# What the report must show: every table of the sample with its shape.
listing = json.loads(run("list", "--json", sample).stdout)
expected = {}
for block in listing["blocks"]:
    if block["kind"] == "calibration table":
        table = json.loads(run("table", sample, "--id", str(block["id"]), "--json").stdout)
        rows, cols = table["shape"]
        vector = table["capacity"][1] == 1
        expected[table["name"]] = (1, rows) if vector else (rows, cols)
check(len(expected) == 8, f"8 tables in the sample, not {len(expected)}")

# The second image: one cell of RFBO_ALC_DATA and the serial number changed.
edited = os.path.join(work, "edited.eeprom")
shutil.copyfile(sample, edited)
run("set", edited, "--id", "2", "SN=200117", "--no-backup")
calibration = run("export", edited).stdout.replace("\t2047.000\t", "\t2050.000\t")
with open(os.path.join(work, "edited.cal"), "w") as out:
    out.write(calibration)
run("import", edited, os.path.join(work, "edited.cal"), "--no-backup")

for pages, name in (([sample], "single"), ([sample, edited], "compared")):
    page = os.path.join(work, name + ".html")
    done = run("report", *pages, "-o", page)
    check(done.returncode == 0, f"{name}: report exit {done.returncode}: {done.stderr}")
    dom = dom_of(page)
    sides = len(pages)
    check(set(dom.tables) == set(expected), f"{name}: tables {sorted(dom.tables)}")
    for table, (lines, points) in expected.items():
        drawn = dom.tables.get(table, {"lines": []})["lines"]
        check(len(drawn) == lines * sides, f"{name}: {table} has {len(drawn)} lines")
        check(all(p == (points, points) for p in drawn), f"{name}: {table} points {drawn}")
        changed = name == "compared" and table == "RFBO_ALC_DATA"
        got = dom.tables.get(table, {})
        check((got.get("diff"), got.get("marks")) == ((1, 1) if changed else (0, 0)),
              f"{name}: {table} differing cells {got.get('diff')}, marks {got.get('marks')}")
    labels = {label for label, _ in dom.fields}
    for field in ("SN", "PARTNUMBER", "PRODUCTDATE", "NAME", "DEPARTMENT", "SERVICEDATE"):
        check(field in labels, f"{name}: field {field} missing")
    marked = sorted(label for label, differs in dom.fields if differs)
    check(marked == (["SN"] if name == "compared" else []), f"{name}: fields marked {marked}")
    if name == "compared":
        sn = [text for (label, _), text in dom.fields.items() if label == "SN"]
        check(sn and "102345" in sn[0] and "200117" in sn[0], f"SN row {sn}")
    ok, inked = not_blank(page, os.path.join(work, name + ".png"))
    check(ok, f"{name}: the screenshot is blank ({inked:.3f} inked)")
    print(f"{name}: {len(dom.tables)} tables, {sum(len(t['lines']) for t in dom.tables.values())} "
          f"lines, {len(dom.fields)} fields, {inked:.1%} of the screenshot inked")

for failure in failures:
    print("FAILED:", failure)
sys.exit(1 if failures else 0)
