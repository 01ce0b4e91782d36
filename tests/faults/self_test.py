#!/usr/bin/python3
"""What scripts/check-faults.py says of the page when it is right, and of pages that are wrong in one way each."""
import importlib.util
import pathlib
import sys
import tempfile

ROOT = pathlib.Path(__file__).parent.parent.parent
spec = importlib.util.spec_from_file_location("check_faults", ROOT / "scripts" / "check-faults.py")
check = importlib.util.module_from_spec(spec)
spec.loader.exec_module(check)

page = check.PAGE.read_text(encoding="utf-8")
named = {test for row in check.rows(page) for test in row[4]}
failed = False


def expect(what, complaints, wanted):
    global failed
    texts = [text for _, text in complaints]
    if (texts == []) if wanted is None else any(wanted in text for text in texts):
        return
    failed = True
    print(f"{what}: expected {wanted!r}, got {texts[:3]}", file=sys.stderr)


def with_page(old, new):
    assert page.count(old) > 0, old
    return check.complaints_of(page.replace(old, new, 1), named, named)


some = sorted(named)[0]
expect("the page", check.complaints_of(page, named, named), None)
expect("a test that is gone", check.complaints_of(page, named - {some}, named), f"names {some}, which is no test")
expect("a test that did not run", check.complaints_of(page, named, named - {some}), f"names {some}, which did not run")
expect("a moment less", with_page("start-up, grace, watching", "start-up, grace"), "lacks process gone, watching")
expect("a moment twice", with_page("start-up, grace", "start-up, grace, grace"), "tells process gone, grace again")
expect("a fault less", with_page("**queue full**", "**queue foul**"), "lacks queue full, start-up")
expect("an unknown moment", with_page("| stopping |", "| stopping, resting |"), "unknown cell: process gone, resting")
expect("no test", with_page("`app.FaultTable.ProcessGone` |\n", " |\n"), "names no test")
expect("a cell less", with_page("| cannot happen: server stopped already |  |", "|  |"), "is no row of four cells")
expect("a test of what cannot happen", with_page("cannot happen: server stopped already |  |",
                                                 f"cannot happen: server stopped already | `{some}` |"), "cannot happen")

with tempfile.TemporaryDirectory() as folder:
    report = pathlib.Path(folder) / "report.xml"
    report.write_text('''<testsuite><testcase name="a" status="run"/><testcase name="b" status="fail"/>
        <testcase name="c" status="disabled"/><testcase name="d" status="notrun"><skipped/></testcase>
        <testcase name="e/x  # GetParam() = 8-byte object &lt;00&gt;" status="run"/></testsuite>''')
    if check.ran_in([report]) != {"a", "b", "e/x"}:
        failed = True
        print(f"ran: {check.ran_in([report])}", file=sys.stderr)

sys.exit(1 if failed else 0)
