#!/bin/sh
# Runs the AT-SPI test in an X server of its own and on a private session bus, which starts the
# accessibility bus when the test asks for it.
# Usage: run_atspi_test.sh QUILLMAR_FORMS FORM_FILE DATABASE
for tool in xvfb-run dbus-run-session xdotool; do
    command -v "$tool" >/dev/null || { echo "run_atspi_test.sh: $tool is missing (make setup installs it)"; exit 1; }
done
/usr/bin/python3 -c "import pyatspi" 2>/dev/null \
    || { echo "run_atspi_test.sh: /usr/bin/python3 has no pyatspi (make setup installs python3-pyatspi)"; exit 1; }
rm -f "$3"
exec xvfb-run -a -s "-screen 0 1280x800x24" \
    dbus-run-session -- /usr/bin/python3 "$(dirname "$0")/atspi_form_test.py" "$@"
