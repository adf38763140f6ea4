"""accessible.py TITLE [NAME]: asks the window of this title, as a screen reader does, what it holds. Fails when a control
that can take the keyboard, or a menu entry, has no name or no description; or when none has the keyboard whose name
begins with NAME."""
import sys

import pyatspi

OWN_TEXTS = {pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_CHECK_MENU_ITEM}
CHOICES = {pyatspi.ROLE_COMBO_BOX}  # their entries speak for themselves


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
    bad.append(f"only {len(things)} controls are told")
if len(sys.argv) > 2:
    focused = [thing.name for thing in everything(top) if thing.getState().contains(pyatspi.STATE_FOCUSED)]
    if not any(name.startswith(sys.argv[2]) for name in focused):
        bad.append(f"the keyboard is in {focused}, expected {sys.argv[2]}")
sys.exit("\n".join(bad) or 0)
