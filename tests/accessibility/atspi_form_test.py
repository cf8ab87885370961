#!/usr/bin/python3
"""Reads the example form over AT-SPI, the Linux accessibility bus, as a screen reader does.

Run inside an X server and a private session bus (see run_atspi_test.sh):
    atspi_form_test.py QUILLMAR_FORMS FORM_FILE DATABASE
Opens the form in quillmar-forms, checks the name, role, text and description of each field, types a value
that breaks a rule and sees the description change (with its change event) and change back, then leaves
the field and reads the message box as an alert.
"""
import json
import os
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

FAILURES = []


def check(condition, what):
    if not condition:
        FAILURES.append(what)
        print("FAIL:", what)


def pump(seconds):
    """Lets AT-SPI events arrive for a while."""
    context = GLib.MainContext.default()
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        while context.pending():
            context.iteration(False)
        time.sleep(0.02)


def wait_for(condition, seconds=10.0):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        pump(0.05)
        value = condition()
        if value:
            return value
    return condition()


def nodes(root):
    """Every object under `root`, depth first."""
    found = []
    stack = [root]
    while stack:
        node = stack.pop()
        if node is None:
            continue
        found.append(node)
        try:
            stack.extend(reversed([child for child in node]))
        except Exception:  # an object that went away while being read
            pass
    return found


def focusable(node):
    return node.getState().contains(pyatspi.STATE_FOCUSABLE)


def text_of(node):
    text = node.queryText()
    return text.getText(0, text.characterCount)


def xdotool(*arguments):
    subprocess.run(["xdotool", *arguments], check=True)


def main():
    forms, form_path, database = sys.argv[1:4]
    with open(form_path, encoding="utf-8") as file:
        controls = json.load(file)["controls"]
    texts = {control["label"]: control.get("properties", {}).get("Text", "") for control in controls}
    labels = list(texts)

    environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                       LANG="en_US.UTF-8", LC_ALL="en_US.UTF-8")
    application = subprocess.Popen([forms, form_path, "--database", database], env=environment)
    try:
        def find_app():
            for app in pyatspi.Registry.getDesktop(0):
                if app is not None and app.name == "quillmar-forms":
                    return app
            return None
        app = wait_for(find_app)
        if app is None:
            print("FAIL: quillmar-forms did not appear on the accessibility bus")
            return 1
        wait_for(lambda: any(node.name == labels[0] for node in nodes(app)))

        # One focusable object per field, named by its label, editable text that reads the text as typed (an
        # empty field never its grey example).
        everything = nodes(app)
        for label in labels:
            named = [node for node in everything if node.name == label and focusable(node)]
            check(len(named) == 1, f"{label}: {len(named)} focusable objects named so, one expected")
            check(not any(node.name == label + ":" and focusable(node) for node in everything),
                  f"{label}: the field around the edit box is a second stop")
            if named:
                field = named[0]
                check(field.getRoleName() == "text", f"{label}: role {field.getRoleName()}, text expected")
                check(field.getState().contains(pyatspi.STATE_EDITABLE), f"{label}: not editable")
                check(text_of(field) == texts[label], f"{label}: reads {text_of(field)!r}, not its text")
        unnamed_buttons = [node for node in everything
                           if node.getRoleName() == "push button" and not node.name]
        check(not unnamed_buttons, f"{len(unnamed_buttons)} push buttons without a name")

        quantity = next(node for node in nodes(app) if node.name == "Quantity" and focusable(node))
        rules = "An integer between 1 and 500"
        check(quantity.description == rules, f"Quantity is described as {quantity.description!r}")

        # Typing a value that breaks a rule changes the description, with an event; a valid one restores it.
        changes = []

        def on_change(event):
            if event.source is not None and event.source.name == "Quantity":
                changes.append(event.source.description)
        pyatspi.Registry.registerEventListener(on_change, "object:property-change:accessible-description")
        quantity.queryComponent().grabFocus()
        wait_for(lambda: quantity.getState().contains(pyatspi.STATE_FOCUSED))
        xdotool("search", "--sync", "--name", "Quillmar Forms", "windowfocus", "--sync")
        xdotool("key", "ctrl+a")
        xdotool("type", "--delay", "50", "750")
        broken = "Not valid: An integer between 1 and 500 is required. " + rules
        wait_for(lambda: quantity.description == broken)
        check(text_of(quantity) == "750", f"Quantity reads {text_of(quantity)!r} after typing 750")
        check(quantity.description == broken, f"with 750 Quantity is described as {quantity.description!r}")
        check(broken in changes, f"no description change event with the broken rule: {changes}")
        xdotool("key", "--delay", "50", "BackSpace", "BackSpace")
        wait_for(lambda: quantity.description == rules)
        check(quantity.description == rules, f"with 7 Quantity is described as {quantity.description!r}")
        check(changes[-1:] == [rules], f"no description change event back to the rules: {changes}")

        # Leaving an invalid field: the message box is an alert that carries its text.
        xdotool("type", "--delay", "50", "50")
        xdotool("key", "Tab")

        def find_alert():
            for window in pyatspi.Registry.getDesktop(0):
                if window is None or window.name != "quillmar-forms":
                    continue
                for node in nodes(window):
                    if node.getRoleName() == "alert":
                        return node
            return None
        alert = wait_for(find_alert)
        check(alert is not None, "leaving 750 shows no alert")
        if alert is not None:
            texts = " ".join(node.name for node in nodes(alert) if node.getRoleName() == "label")
            check("An integer between 1 and 500 is required." in texts, f"the alert reads {texts!r}")
    finally:
        application.terminate()
        try:
            application.wait(timeout=5)
        except subprocess.TimeoutExpired:
            application.kill()
    print("FAILED" if FAILURES else "PASSED", f"({len(FAILURES)} failures)")
    return 1 if FAILURES else 0


if __name__ == "__main__":
    sys.exit(main())
