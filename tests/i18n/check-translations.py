#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks that Kivora's texts are translatable and that the translation files are current.

1. No QML file gives a text-like property (text, title, label, placeholderText, tooltip, …)
   a bare string literal: user-visible texts go through qsTr.
2. lupdate over the sources finds exactly the messages of translations/kivora_en.ts: a text
   added or changed without `make translations` fails here.
3. Every plural message of kivora_en.ts has its English forms filled in.
4. The command line (cli/) prints no bare sentence: a string literal it streams (`out << "…"`)
   holds no word but the program's name "kivora", and no other literal of it that reads as
   words ("two words") stands outside Qt's translation functions or a log line.

Usage: check-translations.py <source dir> <lupdate>. Prints the coverage figures.
"""
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET
from pathlib import Path

root = Path(sys.argv[1])
lupdate = sys.argv[2]
problems = []

# 1. Bare literals in QML.
TEXT_PROPERTIES = (r"text|title|subtitle|description|label|placeholderText|tooltip|"
                   r"fallbackText|displayText|Accessible\.name|Accessible\.description")
bare = re.compile(r"^\s*(%s)\s*:\s*(.*)$" % TEXT_PROPERTIES)
literal = re.compile(r'(?<![\w.])"((?:[^"\\]|\\.)*)"')
# Texts that are not words of a language: the application's name, its mark, a version,
# counts and symbols.
NOT_LANGUAGE = {"", "Kivora", "K", "0", "1.0.0", " ", " · ", ", ", ": "}
qml_files = sorted(p for d in ("app", "controls", "menubar", "settings")
                   for p in (root / d).rglob("*.qml"))
for path in qml_files:
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        m = bare.match(line)
        if not m:
            continue
        value = m.group(2)
        # Drop what qsTr wraps; what is left in quotes is a bare text.
        unwrapped = re.sub(r'qsTr\("(?:[^"\\]|\\.)*"', "qsTr(", value)
        for text in literal.findall(unwrapped):
            if text not in NOT_LANGUAGE:
                problems.append(f"{path.relative_to(root)}:{number}: bare text \"{text}\"")

# 2. The messages lupdate finds against those of the English file.
def messages(ts):
    found = {}
    for context in ET.parse(ts).getroot().iter("context"):
        name = context.findtext("name")
        for message in context.iter("message"):
            found[(name, message.findtext("source"))] = message
    return found

committed = root / "translations" / "kivora_en.ts"
with tempfile.TemporaryDirectory() as folder:
    fresh = Path(folder) / "kivora_en.ts"
    sources = [str(root / d) for d in ("app", "controls", "menubar", "settings", "settings/profiles",
                                      "model", "activation", "ai", "prefs", "updates", "cli")]
    run = subprocess.run([lupdate, "-silent", "-no-obsolete", "-locations", "none",
                          "-no-recursive", "-extensions", "cpp,h,qml", "-source-language", "en",
                          "-target-language", "en", *sources, "-ts", str(fresh)],
                         capture_output=True, text=True)
    if run.returncode != 0:
        problems.append("lupdate failed: " + run.stderr.strip())
        found = {}
    else:
        found = messages(fresh)
known = messages(committed)
for key in sorted(set(found) - set(known)):
    problems.append(f"not in kivora_en.ts (run make translations): {key[0]}: {key[1]!r}")
for key in sorted(set(known) - set(found)):
    problems.append(f"in kivora_en.ts but no longer in the sources: {key[0]}: {key[1]!r}")

# 3. English plural forms.
plurals = [m for m in known.values() if m.get("numerus") == "yes"]
for message in plurals:
    forms = [f.text or "" for f in message.iter("numerusform")]
    if len(forms) != 2 or not all(forms):
        problems.append(f"plural forms missing for {message.findtext('source')!r}")

# 4. Bare sentences of the command line. The C++ is read as tokens, so comments and the
# contents of other literals never count; adjacent literals are one text, as the compiler has it.
TOKEN = re.compile(r'''
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<raw>(?:u8|u|U|L)?R"(?P<delimiter>[^(\s]*)\((?P<rawtext>.*?)\)(?P=delimiter)")
  | (?P<string>(?:u8|u|U|L)?"(?P<text>(?:[^"\\\n]|\\.)*)")
  | (?P<char>'(?:[^'\\\n]|\\.)*')
  | (?P<word>[A-Za-z_]\w*)
  | (?P<shift><<)
  | (?P<other>\S)
''', re.S | re.X)
TRANSLATING = {"tr", "translate", "QT_TR_NOOP", "QT_TRANSLATE_NOOP", "QT_TRANSLATE_NOOP3",
               "QT_TR_N_NOOP", "QT_TRANSLATE_N_NOOP", "QT_TRANSLATE_N_NOOP3"}
LOGGING = {"qCDebug", "qCInfo", "qCWarning", "qCCritical", "qDebug", "qInfo", "qWarning",
           "qCritical", "qFatal"}
TWO_WORDS = re.compile(r"[A-Za-z]{2,} [A-Za-z]{2,}")
A_WORD = re.compile(r"[A-Za-z]{2,}")


def literals(source):
    """Each string literal as (line, text, streamed, translated, logged)."""
    calls = []          # the function before each open parenthesis, innermost last
    statement = set()   # the words of the statement so far
    found = []
    last = None         # the kind of the previous token
    before = None       # "<<" when the previous token was one
    previous = None     # the previous token
    for m in TOKEN.finditer(source):
        kind = m.lastgroup
        if kind == "comment":
            continue
        if kind in ("string", "raw"):
            text = m.group("text") if kind == "string" else m.group("rawtext")
            if last == "string":
                found[-1][1] += text
            else:
                found.append([source.count("\n", 0, m.start()) + 1, text, before == "<<",
                              bool(calls) and calls[-1] in TRANSLATING,
                              bool(statement & LOGGING)])
            last = "string"
            continue
        token = m.group(0)
        if token == "(":
            calls.append(previous if last == "word" else None)
        elif token == ")" and calls:
            calls.pop()
        if token in (";", "{", "}") and not calls:
            statement = set()
        elif kind == "word":
            statement.add(token)
        previous = token
        before = token if kind == "shift" else None
        last = kind
    return found


cli_files = sorted((root / "cli").glob("*.cpp")) + sorted((root / "cli").glob("*.h"))
streamed = translated = 0
for path in cli_files:
    for number, text, is_streamed, is_translated, is_logged in literals(
            path.read_text(encoding="utf-8")):
        where = f"{path.relative_to(root)}:{number}"
        if is_translated:
            translated += 1
        elif is_logged:
            continue
        elif is_streamed:
            # The program's name before a message ("kivora: ") or a version ("kivora "),
            # line ends and punctuation are no sentence.
            if A_WORD.search(re.sub(r"^kivora[: ]", "", text)):
                problems.append(f"{where}: printed without translation \"{text}\"")
            else:
                streamed += 1
        elif TWO_WORDS.search(text):
            problems.append(f"{where}: a sentence outside the translation functions \"{text}\"")

contexts = sorted({key[0] for key in known})
print(f"translations: {len(known)} messages in {len(contexts)} contexts, "
      f"{len(plurals)} with plural forms; {len(qml_files)} QML files checked for bare texts")
print(f"command line: {len(cli_files)} C++ files, {translated} texts through the translation "
      f"functions, {streamed} printed literals of punctuation or the program's name only")
for problem in problems:
    print(problem)
sys.exit(1 if problems else 0)
