#!/usr/bin/env python3
"""Drives the host from Python: picks a stand, then adds a code to a code list.

    examples/drive/drive.py build/release/bin/korvex_host [OPTION OF THE HOST]...

The protocol is described in docs/drive.md. Nothing but the standard library is needed.
"""

import json
import subprocess
import sys


class LibraryError(Exception):
    """A call failed: number, source and text are the library's."""


class Host:
    """A running host. Every message is a line of JSON, and so is its answer."""

    def __init__(self, program, *options):
        self.process = subprocess.Popen([program, "--drive", *options], text=True, encoding="utf-8",
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.sent = 0

    def send(self, do, **fields):
        self.sent += 1
        self.process.stdin.write(json.dumps({"id": self.sent, "do": do, **fields}) + "\n")
        self.process.stdin.flush()
        answer = json.loads(self.process.stdout.readline())
        assert answer["id"] == self.sent
        if not answer["ok"]:
            raise RuntimeError(f"{do} {fields}: {answer['error']['text']}")
        return answer

    def call(self, operation, **arguments):
        class_name, method = operation.split(".")
        return self.send("call", **{"class": class_name, "method": method, "arguments": arguments})

    def close(self):
        """The end of the input ends the host. Dialogs that are still open are cancelled."""
        self.process.stdin.close()
        status = self.process.wait()
        self.process.stdout.close()
        return status


def outcome(answer):
    """What a call gave back, once its last dialog is closed."""
    ended = answer["ended"]
    if "error" in ended:
        raise LibraryError("{number} {source}: {text}".format(**ended["error"]))
    return ended["result"], ended["arguments"]


def pick_stand(host, path):
    """Opens the stand dialog, selects the stand and presses OK. The key comes back in the host's own text boxes."""
    boxes = {f"txtWO{level}": {"object": "TextBox"} for level in range(1, 7)}
    host.call("c_Waldort.Waldort", **boxes, txtFlaeche={"object": "TextBox"})
    host.send("select", control="TreeView1", path=path)
    answer = host.send("click", control="btnOK")
    _, arguments = outcome(answer)
    return [arguments[box]["Text"] for box in boxes], arguments["txtFlaeche"]["Text"]


def add_code(host, text_id, code, name):
    """Adds a row to a code list. @return its rows afterwards, as the grid shows them"""
    host.call("c_Tabellen2.Tabellen2", intIdString_dll=text_id, strUserName="Anna")
    host.send("focus", control="DataGrid1")
    host.send("click", control="btnNeu")
    host.send("type", control="txtField1", text=code)
    host.send("type", control="txtField2", text=name)
    answer = host.send("click", control="btnSpeichern", statements=True)
    for statement in answer["statements"]:
        print("   ", statement)
    host.send("wait", milliseconds=500)  # the grid is read a second time after a write
    rows = [row["cells"] for row in host.send("rows", control="DataGrid1")["rows"]]
    outcome(host.send("click", control="btnOK"))
    return rows


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    host = Host(*sys.argv[1:])
    version, _ = outcome(host.call("C_Version.DLL_Version"))
    print("Korvex Forms", version)

    key, area = pick_stand(host, ["Harz", "04"])
    print("Stand", "/".join(part for part in key if part), "area", area or "unknown")

    print("Adding a colour:")
    rows = add_code(host, 496, "PY", "Pythongrün")
    assert ["PY", "Pythongrün"] in [row[:2] for row in rows], rows
    print("Colours:", ", ".join(row[1] for row in rows))
    return host.close()


if __name__ == "__main__":
    sys.exit(main())
