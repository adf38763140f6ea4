"""accessible.py TITLE [TEXT]: reads the window with this title as a screen reader does. Fails if a focusable control or
a menu entry has no name or no description, or if neither the name of the control with the focus nor the description of
the status bar contains TEXT."""
import sys

import pyatspi

OWN_TEXTS = {pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_CHECK_MENU_ITEM}
CHOICES = {pyatspi.ROLE_COMBO_BOX}  # their entries need no description


def everything(top):
    yield top
    if top.getRole() in CHOICES:
        return
    for child in top:
        if child is not None:
            yield from everything(child)


def window(title):
    for application in pyatspi.Registry.getDesktop(0):
        for top in application or ():
            if top is not None and top.name == title:
                return top
    sys.exit(f'no window "{title}" for screen readers')


def described(thing):
    state = thing.getState()
    shown = state.contains(pyatspi.STATE_SHOWING)
    takes_keyboard = shown and state.contains(pyatspi.STATE_FOCUSABLE) or shown and thing.getRole() in CHOICES
    return takes_keyboard or thing.getRole() in OWN_TEXTS


top = window(sys.argv[1])
things = [thing for thing in everything(top) if described(thing)]
bad = [f'{thing.getRoleName()} "{thing.name}": "{thing.description}"' for thing in things
       if not thing.name or not thing.description]
if len(things) < 3:
    bad.append(f"only {len(things)} controls are visible to screen readers")
if len(sys.argv) > 2:
    heard = [thing.name for thing in everything(top) if thing.getState().contains(pyatspi.STATE_FOCUSED)]
    heard += [thing.description for thing in everything(top) if thing.name == "Status"]
    if not any(sys.argv[2] in text for text in heard):
        bad.append(f"focus and status bar say {heard}, expected {sys.argv[2]}")
sys.exit("\n".join(bad) or 0)
