#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the bad-input corpus: profile files (profiles/) and import files (import/).

Each file's name says what must become of it, decided here from the rules of the profile
file, not from what the program does:
  profiles/loads-*.json      read as profiles, the file left as it is
  profiles/refused-*.json    not read: kept aside byte for byte, first-run set-up runs
  import/imports-N-*.json    N profiles added
  import/refused-*.json      nothing imported, one sentence on standard error

Run it from anywhere; it replaces the two folders. The files are committed, so the tests need
no Python.
"""
import json
import os
import shutil

HERE = os.path.dirname(os.path.abspath(__file__))
UUID_A = "9F3C2A10-4B5D-4E6F-8A7B-1C2D3E4F5A6B"
UUID_B = "0A1B2C3D-4E5F-4061-8293-A4B5C6D7E8F9"
MAX_DEPTH = 32  # arrays and objects inside each other that a file may have


def ai(**over):
    config = {"isEnabled": False, "provider": "OpenAI", "model": "gpt-4o", "apiKey": "",
              "baseURL": "", "customHeaders": {}}
    config.update(over)
    return config


def profile(pid=UUID_A, name="Work", **over):
    record = {"id": pid, "name": name, "gitName": "Ada", "gitEmail": "ada@corp.example",
              "sshKeyPath": "~/.ssh/id_work", "aiConfig": ai()}
    record.update(over)
    return record


def store(profiles, active=UUID_A):
    data = {"profiles": profiles}
    if active is not None:
        data["activeProfileID"] = active
    return data


def dump(value, pretty=False):
    text = json.dumps(value, ensure_ascii=False, indent=2 if pretty else None,
                      separators=None if pretty else (",", ":"))
    return text.encode("utf-8", "surrogatepass")


class Writer:
    def __init__(self, folder):
        self.folder = os.path.join(HERE, folder)
        shutil.rmtree(self.folder, ignore_errors=True)
        os.makedirs(self.folder)
        self.names = set()

    def put(self, name, data):
        assert name not in self.names, name
        self.names.add(name)
        if not isinstance(data, bytes):
            data = data.encode("utf-8")
        with open(os.path.join(self.folder, name + ".json"), "wb") as f:
            f.write(data)


def hostile_strings():
    """Field values that are valid JSON strings and so must be loaded and kept as text."""
    return {
        "line-feed": "Work\ntouch /tmp/kivora-corpus-pwned",
        "carriage-return": "Work\rtouch /tmp/kivora-corpus-pwned\r",
        "nul": "Work\u0000rm -rf ~",
        "every-c0": "".join(chr(c) for c in range(32)),
        "del-and-c1": "W\u007f\u0085\u009b[31m",
        "command-substitution": "$(touch /tmp/kivora-corpus-pwned)",
        "backticks": "`touch /tmp/kivora-corpus-pwned`",
        "semicolons": "/x; touch /tmp/kivora-corpus-pwned;",
        "quotes": "it's \"quoted\" 'twice'",
        "trailing-backslash": "Ada\\",
        "variables": "$HOME ${PATH} $((1+1))",
        "ansi-escape": "\u001b[2J\u001b[31mred",
        "bidi-override": "\u202egnp.exe",
        "line-separators": "a\u2028b\u2029c",
        "emoji-and-cjk": "\U0001F511 鍵 ключ",
        "combining": "e\u0301\u0301\u0301",
        "long-256kib": "x" * (1 << 18),
        "glob": "* ? [a-z] ~root",
        "option-like": "--upload-pack=touch /tmp/kivora-corpus-pwned",
        "percent-and-braces": "%s %n {0} %(x)s",
    }


def bad_types():
    return {"number": 1, "float": 1.5, "true": True, "null": None, "array": [], "object": {},
            "array-of-string": ["x"]}


def profile_files():
    w = Writer("profiles")
    base = store([profile()])
    w.put("loads-one-profile", dump(base))
    w.put("loads-empty-list", dump(store([], None)))
    w.put("loads-no-active", dump(store([profile()], None)))
    w.put("loads-active-null", b'{"profiles":[],"activeProfileID":null}')
    w.put("loads-active-of-no-profile", dump(store([profile()], UUID_B)))
    w.put("loads-lower-case-ids", dump(store([profile(pid=UUID_A.lower())], UUID_A.lower())))
    w.put("loads-pretty-printed", dump(base, pretty=True))
    w.put("loads-crlf-whitespace", dump(base, pretty=True).replace(b"\n", b"\r\n"))
    w.put("loads-two-profiles-same-id", dump(store([profile(), profile(name="Twin")])))
    w.put("loads-hundred-profiles",
          dump(store([profile(pid="%08X-0000-4000-8000-000000000000" % i, name="P%d" % i)
                      for i in range(100)], None)))
    w.put("loads-unknown-keys", dump(dict(base, extra={"a": [1, 2, {"b": None}]},
                                          version=3)))
    w.put("loads-unknown-profile-keys", dump(store([profile(color="red", tags=["x"])])))
    w.put("loads-escaped-slash", dump(base).replace(b"~/.ssh/", b"~\\/.ssh\\/"))
    w.put("loads-unicode-escapes", dump(base).replace(b'"Work"', b'"\\u0057\\u006f\\u0072k"'))
    w.put("loads-all-providers",
          dump(store([profile(pid="%08X-1111-4000-8000-000000000000" % i,
                              aiConfig=ai(isEnabled=True, provider=p, apiKey="k"))
                      for i, p in enumerate(["OpenAI", "Anthropic", "Google", "Azure OpenAI",
                                             "Local"])])))
    w.put("loads-headers", dump(store([profile(aiConfig=ai(customHeaders={
        "X-A": "1", "X-B": "$(touch /tmp/kivora-corpus-pwned)", "X-\n": "\r\n"}))])))
    w.put("loads-empty-strings", dump(store([profile(name="", gitName="", gitEmail="",
                                                     sshKeyPath="")])))
    w.put("loads-utf8-bom", b"\xef\xbb\xbf" + dump(base))
    w.put("loads-depth-at-limit",
          dump(base)[:-1] + b',"x":' + b"[" * (MAX_DEPTH - 1) + b"]" * (MAX_DEPTH - 1) + b"}")
    w.put("loads-big-numbers", dump(base)[:-1] + b',"m":-0.0,"i":123456789012345678901234567890}')
    for label, text in hostile_strings().items():
        for field in ("name", "gitName", "gitEmail", "sshKeyPath"):
            if label == "long-256kib" and field != "name":
                continue
            w.put("loads-%s-in-%s" % (label, field), dump(store([profile(**{field: text})])))
        if label in ("nul", "line-feed", "quotes", "command-substitution"):
            w.put("loads-%s-in-api-key" % label,
                  dump(store([profile(aiConfig=ai(isEnabled=True, apiKey=text, baseURL=text))])))

    # Not JSON at all, or not the file's shape.
    w.put("refused-empty", b"")
    w.put("refused-whitespace", b" \n\t\r\n")
    w.put("refused-text", b"precious but broken")
    w.put("refused-top-level-array", dump([profile()]))
    w.put("refused-top-level-string", b'"profiles"')
    w.put("refused-top-level-number", b"42")
    w.put("refused-top-level-null", b"null")
    w.put("refused-no-profiles-key", dump({"activeProfileID": UUID_A}))
    w.put("refused-trailing-garbage", dump(base) + b"x")
    w.put("refused-two-documents", dump(base) + dump(base))
    w.put("refused-comment", b"// mine\n" + dump(base))
    w.put("refused-trailing-comma", dump(base)[:-1] + b",}")
    w.put("refused-single-quotes", dump(base).replace(b'"', b"'"))
    w.put("refused-nan", dump(base)[:-1] + b',"n":NaN}')
    # A number no double can hold is not a value the file can mean.
    w.put("refused-number-overflow", dump(base)[:-1] + b',"n":1e999999}')
    w.put("refused-utf16", dump(base).decode().encode("utf-16"))
    w.put("refused-double-bom", b"\xef\xbb\xbf\xef\xbb\xbf" + dump(base))
    full = dump(base)
    for cut in (1, 2, 10, 20, 40, 60, 80, 100, 150, 200, 250, len(full) - 2, len(full) - 1):
        w.put("refused-truncated-at-%d" % cut, full[:cut])
    # Bytes that no JSON text may hold.
    w.put("refused-raw-nul-in-string", full.replace(b"Work", b"Wo\x00rk"))
    w.put("refused-raw-nul-after", full + b"\x00")
    w.put("refused-raw-line-feed-in-string", full.replace(b"Work", b"Wo\nrk"))
    w.put("refused-raw-tab-in-string", full.replace(b"Work", b"Wo\trk"))
    w.put("refused-invalid-utf8", full.replace(b"Work", b"Wo\xffrk"))
    w.put("refused-overlong-utf8", full.replace(b"Work", b"Wo\xc0\xafrk"))
    w.put("refused-utf8-surrogate", full.replace(b"Work", b"Wo\xed\xa0\x80rk"))
    w.put("refused-cut-utf8", full.replace(b"Work", b"Wo\xe2\x82"))
    w.put("refused-lone-surrogate-escape", full.replace(b"Work", b"Wo\\ud800rk"))
    w.put("refused-bad-escape", full.replace(b"Work", b"Wo\\xrk"))
    # Missing keys and wrong types, one at a time.
    for key in ("id", "name", "gitName", "gitEmail", "sshKeyPath", "aiConfig"):
        p = profile()
        del p[key]
        w.put("refused-missing-%s" % key, dump(store([p])))
    for key in ("isEnabled", "provider", "model", "apiKey", "baseURL", "customHeaders"):
        config = ai()
        del config[key]
        w.put("refused-missing-ai-%s" % key, dump(store([profile(aiConfig=config)])))
    for label, value in bad_types().items():
        for key in ("id", "name", "gitName", "sshKeyPath"):
            w.put("refused-%s-%s" % (key, label), dump(store([profile(**{key: value})])))
        if label != "true":
            w.put("refused-ai-isEnabled-%s" % label,
                  dump(store([profile(aiConfig=ai(isEnabled=value))])))
        if label != "object":
            w.put("refused-aiConfig-%s" % label, dump(store([profile(aiConfig=value)])))
            w.put("refused-customHeaders-%s" % label,
                  dump(store([profile(aiConfig=ai(customHeaders=value))])))
        if label != "array":
            w.put("refused-profiles-%s" % label, dump({"profiles": value}))
        w.put("refused-active-%s" % label if label != "null" else "refused-profile-null",
              dump(store([profile()], value)) if label != "null" else dump(store([None])))
    w.put("refused-header-value-number",
          dump(store([profile(aiConfig=ai(customHeaders={"X": 1}))])))
    for label, provider in {"lower-case": "openai", "unknown": "Mistral", "empty": "",
                            "padded": " OpenAI", "azure-no-space": "AzureOpenAI"}.items():
        w.put("refused-provider-%s" % label, dump(store([profile(aiConfig=ai(provider=provider))])))
    for label, uid in {"braces": "{" + UUID_A + "}", "short": UUID_A[:-1],
                       "no-hyphens": UUID_A.replace("-", "") + "XXXX", "empty": "",
                       "not-hex": "G" + UUID_A[1:], "injection": "$(touch /tmp/kivora-corpus-pwned)"}.items():
        w.put("refused-id-%s" % label, dump(store([profile(pid=uid)], None)))
        w.put("refused-active-id-%s" % label, dump(store([profile()], uid)))
    w.put("refused-one-bad-among-good",
          dump(store([profile(), profile(pid=UUID_B, name=None)])))
    # Nesting past the limit.
    w.put("refused-depth-one-past-limit",
          full[:-1] + b',"x":' + b"[" * MAX_DEPTH + b"]" * MAX_DEPTH + b"}")
    w.put("refused-open-brackets-100000", b"[" * 100000)
    w.put("refused-closed-arrays-100000", b"[" * 100000 + b"]" * 100000)
    w.put("refused-objects-50000", b'{"a":' * 50000 + b"1" + b"}" * 50000)
    w.put("refused-deep-in-headers",
          dump(store([profile(aiConfig=ai(customHeaders={"X": "1"}))])).replace(
              b'"X":"1"', b'"X":' + b"[" * 200 + b"]" * 200))
    # Keys given twice: which one counts would be anyone's guess.
    w.put("refused-duplicate-profiles", full[:-1] + b',"profiles":[]}')
    w.put("refused-duplicate-active", full[:-1] + b',"activeProfileID":"' + UUID_B.encode() + b'"}')
    for key in ("id", "name", "gitName", "gitEmail", "sshKeyPath", "aiConfig"):
        value = json.dumps(profile()[key], separators=(",", ":")).encode()
        w.put("refused-duplicate-%s" % key,
              full.replace(b'"%s":' % key.encode(), b'"%s":%s,"%s":' % (key.encode(), value, key.encode()), 1))
    w.put("refused-duplicate-isEnabled", full.replace(b'"isEnabled":false', b'"isEnabled":false,"isEnabled":true'))
    w.put("refused-duplicate-header",
          full.replace(b'"customHeaders":{}', b'"customHeaders":{"X":"1","X":"2"}'))
    w.put("refused-duplicate-in-unknown-key", full[:-1] + b',"x":{"a":1,"a":2}}')
    return w


def import_files():
    w = Writer("import")
    one = [profile()]
    w.put("imports-1-one-profile", dump(one, pretty=True))
    w.put("imports-0-empty-array", b"[]")
    w.put("imports-2-two-profiles", dump([profile(), profile(pid=UUID_B, name="home box")], True))
    w.put("imports-2-same-id-twice", dump([profile(), profile()], True))
    w.put("imports-1-compact", dump(one))
    w.put("imports-1-unknown-keys", dump([profile(extra={"a": 1})], True))
    w.put("imports-1-utf8-bom", b"\xef\xbb\xbf" + dump(one, True))
    w.put("imports-50-many", dump([profile(pid="%08X-2222-4000-8000-000000000000" % i,
                                           name="p %d" % i) for i in range(50)], True))
    w.put("imports-1-depth-at-limit",
          dump([profile(x=json.loads("[" * (MAX_DEPTH - 2) + "]" * (MAX_DEPTH - 2)))]))
    for label, text in hostile_strings().items():
        if label == "long-256kib":
            w.put("imports-1-%s-name" % label, dump([profile(name=text)]))
            continue
        w.put("imports-1-%s-in-fields" % label,
              dump([profile(name=text, gitName=text, gitEmail=text, sshKeyPath=text)], True))
    w.put("refused-store-file", dump(store(one)))
    w.put("refused-empty", b"")
    w.put("refused-text", b"not an export")
    w.put("refused-null", b"null")
    w.put("refused-object", b"{}")
    w.put("refused-array-of-strings", b'["Work"]')
    w.put("refused-array-of-null", b"[null]")
    w.put("refused-nested-array", dump([one]))
    full = dump(one, True)
    for cut in (1, 5, 50, 100, 200, len(full) - 1):
        w.put("refused-truncated-at-%d" % cut, full[:cut])
    w.put("refused-trailing-garbage", full + b"]")
    w.put("refused-comment", b"/* export */" + full)
    w.put("refused-invalid-utf8", full.replace(b"Work", b"W\xfe\xffk"))
    w.put("refused-raw-nul", full.replace(b"Work", b"W\x00k"))
    w.put("refused-utf16", full.decode().encode("utf-16"))
    for key in ("id", "name", "gitName", "gitEmail", "sshKeyPath", "aiConfig"):
        p = profile()
        del p[key]
        w.put("refused-missing-%s" % key, dump([p], True))
    for label, value in bad_types().items():
        w.put("refused-name-%s" % label, dump([profile(name=value)], True))
        if label != "object":
            w.put("refused-aiConfig-%s" % label, dump([profile(aiConfig=value)], True))
    w.put("refused-provider-unknown", dump([profile(aiConfig=ai(provider="Mistral"))], True))
    w.put("refused-id-injection", dump([profile(pid="$(touch /tmp/kivora-corpus-pwned)")], True))
    w.put("refused-one-bad-among-good", dump([profile(), {"id": UUID_B}], True))
    w.put("refused-open-brackets-100000", b"[" * 100000)
    w.put("refused-closed-arrays-100000", b"[" * 100000 + b"]" * 100000)
    w.put("refused-objects-50000", b'[{"a":' * 25000 + b"1" + b"}]" * 25000)
    w.put("refused-depth-one-past-limit",
          dump([profile(x=json.loads("[" * (MAX_DEPTH - 1) + "]" * (MAX_DEPTH - 1)))]))
    w.put("refused-duplicate-name", full.replace(b'"name": "Work"', b'"name": "Work", "name": "Evil"'))
    w.put("refused-duplicate-sshKeyPath",
          full.replace(b'"sshKeyPath": "~/.ssh/id_work"',
                       b'"sshKeyPath": "~/.ssh/id_work", "sshKeyPath": "/etc/passwd"'))
    w.put("refused-duplicate-header",
          dump([profile(aiConfig=ai(customHeaders={"X": "1"}))]).replace(b'"X":"1"', b'"X":"1","X":"2"'))
    return w


if __name__ == "__main__":
    p = profile_files()
    i = import_files()
    print("profiles: %d files, imports: %d files" % (len(p.names), len(i.names)))
