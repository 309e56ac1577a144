# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""What a screen reader is told of MARVO's main window: names and roles, and that it can work the controls."""
import sys
import time

import pyatspi

WANTED = {
    ("Menu", pyatspi.ROLE_PUSH_BUTTON),
    ("Open folder…", pyatspi.ROLE_PUSH_BUTTON),
    ("Play or pause", pyatspi.ROLE_PUSH_BUTTON),
    ("Full screen", pyatspi.ROLE_PUSH_BUTTON),
    ("Map", pyatspi.ROLE_PUSH_BUTTON),
}
SLIDERS = 2  # position and volume


def everything(node):
    for child in node:
        if child is not None:
            yield child
            yield from everything(child)


def application():
    until = time.monotonic() + 40
    while time.monotonic() < until:
        for app in pyatspi.Registry.getDesktop(0):
            if app is not None and app.name == "marvo" and app.childCount > 0:
                return app
        time.sleep(0.2)
    sys.exit("MARVO is not on the bus")


def look(app):
    """What is shown, the sliders of it that have a name, and what is wrong with them."""
    shown = [node for node in everything(app) if node.getState().contains(pyatspi.STATE_SHOWING)]
    seen = {(node.name, node.getRole()) for node in shown}
    faults = [f"{name}: no such {pyatspi.ROLE_NAMES.get(role, role)}" for name, role in WANTED - seen]
    sliders = [node for node in shown if node.getRole() == pyatspi.ROLE_SLIDER and node.name]
    if len(sliders) < SLIDERS:
        faults.append(f"{len(sliders)} sliders with a name")
    faults += [f"a {node.getRoleName()} without a name" for node in shown
               if node.getState().contains(pyatspi.STATE_FOCUSABLE) and not node.name]
    if faults:
        faults.append(f"seen: {sorted((name, str(role)) for name, role in seen if name)}")
    return shown, sliders, faults


app = application()
until = time.monotonic() + 10  # it is on the bus before its window is shown
shown, sliders, faults = look(app)
while faults and time.monotonic() < until:
    time.sleep(0.2)
    shown, sliders, faults = look(app)
volume = next((node for node in sliders if node.queryValue().maximumValue == 200), None)
if volume is None:
    faults.append("no volume")
else:
    volume.queryValue().currentValue = 100
    until = time.monotonic() + 5
    while volume.queryValue().currentValue != 100 and time.monotonic() < until:
        time.sleep(0.1)
    if volume.queryValue().currentValue != 100:
        faults.append("the volume cannot be set")
if faults:
    sys.exit("\n".join(faults))
print(f"{len(shown)} objects seen, {len(sliders)} sliders")
