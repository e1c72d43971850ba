"""Every window over AT-SPI: no font code, no control without a name; and the journey type, save, run, answer, read."""
import os
import re
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

NAMED = {'push button', 'toggle button', 'check box', 'radio button', 'menu', 'menu item', 'check menu item', 'list item',
         'list', 'text', 'entry', 'table cell', 'page tab', 'frame', 'dialog', 'terminal', 'tool bar', 'menu bar',
         'status bar'}
# Latin that is no font code: keys, names, and what a program or a file is called.
LATIN = re.compile(r'^(Tolvan|Basic|Default|mira|tvp|Ctrl|Alt|Shift|Tab|Enter|Delete|F|O|Roman)$')
WORD = re.compile('[A-Za-z\u00c0-\u00ff]+')
dump = open(os.environ.get('TOLVAN_DUMP', os.devnull), 'w', buffering=1)
faults = []
heard = []
focused = []


def pump(seconds=0.05):
    end = time.time() + seconds
    while time.time() < end:
        GLib.MainContext.default().iteration(False)
        time.sleep(0.005)


def wait(what, find, seconds=20):
    end = time.time() + seconds
    while time.time() < end:
        try:
            found = find()
            if found:
                return found
        except Exception:  # a widget that goes while it is looked at
            pass
        pump()
    sys.exit('not there: ' + what)


def application():
    return next((app for app in pyatspi.Registry.getDesktop(0) if app and app.name == 'Tolbasic' and app.childCount), None)


def below(node):
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is not None:
            yield child
            yield from below(child)


def find(role, name, root=None, shown=True):
    for node in below(root or application()):
        if node.getRoleName() == role and (name is None or name in node.name):
            if not shown or node.getState().contains(pyatspi.STATE_SHOWING):
                return node
    return None


def textOf(node):
    try:
        text = node.queryText()
        return text.getText(0, text.characterCount)
    except NotImplementedError:
        return ''


def check(window, title, roman=()):
    """`roman`: names of what may hold Roman letters, as the user types them."""
    dump.write(f'== {title}\n')
    for node in [window, *below(window)]:
        role, name = node.getRoleName(), node.name
        depth, up = 0, node
        while up is not None and up != window:
            depth, up = depth + 1, up.parent
        text = textOf(node)
        dump.write('  ' * depth + f'{role}: {name!r}'
                   + (f' [{node.description}]' if node.description else '')
                   + (f' = {text[:200]!r}' if text and text != name else '') + '\n')
        if role in NAMED and not name.strip() and '' not in roman:
            faults.append(f'{title}: {role} without a name')
        if any(part in name for part in roman) or re.match('[1-4]:', name):  # a recent file's path
            continue
        for said in (name, node.description, text):
            for word in WORD.findall(said):
                if not LATIN.match(word):
                    faults.append(f'{title}: {role} says {said[:80]!r}')
                    break


def do(node, number=0):
    node.queryAction().doAction(number)
    pump(0.2)


def choose(name):
    do(wait(f'menu item {name}', lambda: next(
        (node for node in below(application()) if node.getRoleName() == 'menu item' and node.name.strip() == name
         and node.parent.getRoleName() == 'popup menu'), None)))


def press(button, root):
    do(wait(f'button {button}', lambda: find('push button', button, root)))


def window(part):
    return wait(f'window {part}', lambda: next(
        w for w in application() if part in w.name and w.getState().contains(pyatspi.STATE_SHOWING)))


def gone(part):
    wait(f'{part} to go', lambda: not any(
        part in w.name and w.getState().contains(pyatspi.STATE_SHOWING) for w in application()))


def xdotool(*words):
    subprocess.run(['xdotool', *words], check=True)
    pump(0.2)


def key(keys):
    xdotool('key', '--clearmodifiers', keys)


def top(node):
    while node.parent is not None and node.parent.getRoleName() != 'application':
        node = node.parent
    return node


def onFocus(event):
    try:
        if event.detail1 and event.source.getRoleName() == 'menu item':
            focused.append(event.source.name)
    except GLib.GError:  # it has gone meanwhile
        pass


def onText(event):
    if event.source.getRoleName() == 'terminal':
        heard.append(str(event.any_data))


pyatspi.Registry.registerEventListener(onFocus, 'object:state-changed:focused')
pyatspi.Registry.registerEventListener(onText, 'object:text-changed:insert')
wait('Tolbasic', application)
check(next(iter(application())), 'opening picture')
editor = wait('the editor', lambda: next(w for w in application() if find('menu bar', None, w)))
wait('the panes', lambda: find('text', 'देवनागरीत', editor))
check(editor, 'editor')

# Other windows, each opened from its menu.
for item, title, close, roman in [('निवडी', 'निवडी', 'रद्द', ()), ('शोध. . .', 'शोध', 'बंद कर', ()),
                                  ('तोलवन बेसिक बद्दल', 'बद्दल', 'ठीक आहे', ()),
                                  ('उदाहरणे. . .', 'उदाहरणे', 'रद्द', ()),
                                  ('छापील प्रत. . .', 'छापील प्रत', 'रद्द', ()),
                                  ('मदत', 'मदत', None, (':', 'devanAgarI'))]:
    choose(item)
    box = window(title) if title != 'मदत' else wait('help', lambda: next(w for w in application() if w.name.strip().endswith('मदत')))
    check(box, title, roman)
    if close:
        press(close, box)
    else:
        key('Escape')
    pump(0.3)

# Type, save, run, answer, read.
roman = find('text', 'रोमन', editor)
roman.queryComponent().grabFocus()
program = 'dAkhav #"#tujhe nAv kAy?#"#\nghe nAv\ndAkhav #"#namaskAr, #"# & nAv\n'
roman.queryEditableText().insertText(0, program, len(program))
devanagari = find('text', 'देवनागरीत', editor)
wait('the program in Devanagari', lambda: 'दाखव "तुझे नाव काय?"\nघे नाव' in textOf(devanagari))
check(editor, 'editor with a program', ('रोमन',))

# What opens at the panes: their menus, and the words that begin like the one at the caret.
for pane, item in [(devanagari, 'सर्व निवड'), (roman, 'जोड')]:
    place = pane.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    xdotool('mousemove', str(place.x + place.width // 2), str(place.y + place.height // 2), 'click', '3')
    for _ in range(8):
        key('Down')
    wait('the menu item ' + item, lambda: item in focused)
    key('Escape')
pyatspi.Registry.deregisterEventListener(onFocus, 'object:state-changed:focused')
for name in focused:
    if WORD.search(name):
        faults.append(f'menus of the panes: {name!r}')
roman.queryText().setCaretOffset(len(program))
xdotool('type', 'dA')
key('ctrl+space')
words = wait('the words', lambda: find('table cell', 'दाखव', None))
check(words.parent, 'completion', (', ',))
key('Escape')
for _ in 'dA':
    key('BackSpace')

# Boxes that ask.
choose('नवीन')
question = wait('the question', lambda: find('push button', 'नाही'))
check(top(question), 'question box')
key('Escape')
choose('साठव')
saving = wait('the file dialog', lambda: find('file chooser', None) or find('dialog', None))
check(saving, 'file dialog', ('',))  # Qt's own; it names files
entry = wait('the file name', lambda: find('text', None, saving))
entry.queryEditableText().setTextContents(os.environ['HOME'] + '/mira.tvp')
press('साठव', saving)
wait('the file', lambda: os.path.exists(os.environ['HOME'] + '/mira.tvp'))
saved = open(os.environ['HOME'] + '/mira.tvp', 'rb').read()
if b'ghe nAv\r\n' not in saved:
    faults.append(f'saved: {saved!r}')

# The file dialogs of the other commands, which name files.
for item, title in [('जुन्या आवृत्त्या', 'old versions'), ('स्वतंत्र चालणारे प्रायोजन बनव', 'Make EXE')]:
    choose(item)
    box = wait(title, lambda: find('file chooser', None) or find('dialog', None))
    check(box, title, ('',))
    key('Escape')
    wait(title + ' to go', lambda: not (find('file chooser', None) or find('dialog', None)))

choose('सुरू कर')
console = wait('the console', lambda: find('terminal', None))
answer = wait('the question', lambda: find('text', 'तुझे नाव काय?') or find('entry', 'तुझे नाव काय?'))
answer.queryEditableText().setTextContents('mIrA')
pump(0.3)
check(console.parent, 'console', ('तुझे नाव काय?',))
key('Return')
wait('the greeting', lambda: 'नमस्कार, मीरा' in textOf(console))
wait('the greeting to be announced', lambda: any('नमस्कार, मीरा' in text for text in heard))
key('space')
pump(0.5)

# A mistake: its finding, and the box of a failed run.
roman.queryEditableText().setTextContents('dAkhav 1 bhAgile 0\njar vay\n')
finding = wait('a finding', lambda: find('list item', None, editor))
check(editor, 'editor with mistakes', ('रोमन',))
choose('सुरू कर')
box = wait('the error box', lambda: next(w for w in application() if w.getRoleName() in ('dialog', 'alert')
                                         and w.getState().contains(pyatspi.STATE_SHOWING)))
check(box, 'error box')
key('Escape')
for fault in sorted(set(faults)):
    print(fault)
sys.exit(1 if faults else 0)
