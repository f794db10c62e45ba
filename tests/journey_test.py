#!/usr/bin/python3
"""The real program on a virtual display, used through the keyboard, the mouse and the accessibility bus.

journey_test.py PROGRAM
"""
import os
import select
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

PROGRAM = sys.argv[1]
WORK = Path(os.environ["HOME"])
STORE = Path(os.environ["XDG_CONFIG_HOME"], "tarumine", "Tarumine.conf")


def wait_for(what, seconds=10):
    """The first true value that what() gives, or a failure."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            found = what()
        except Exception:  # what is looked for may vanish while it is looked at
            found = None
        if found:
            return found
        time.sleep(0.03)
    raise AssertionError(f"waited in vain for {what.__name__}")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def started(*command, **how):
    """A process that doesn't outlive this one, however this one ends."""
    return subprocess.Popen(["setpriv", "--pdeathsig", "TERM", "--", *command], stderr=subprocess.DEVNULL, **how)


def answered(*command):
    """What a server that is started says of itself at the descriptor that is added to its command."""
    reader, writer = os.pipe()
    started(*command, str(writer), pass_fds=[writer])
    os.close(writer)
    with open(reader, encoding="utf-8") as answer:
        return answer.readline().strip()


def window(title="Tarumine"):
    def shown_window():
        return run("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()[-1]
    return wait_for(shown_window)


def keys(*names):
    run("xdotool", "key", "--clearmodifiers", *names)


def nodes(root):
    yield root
    for i in range(root.childCount):
        child = root.getChildAtIndex(i)
        if child:
            yield from nodes(child)


def role_of(node):
    """The role of a node, which has one name whichever at-spi2 says it: older ones call a button "push button"."""
    name = node.getRoleName()
    return "button" if name == "push button" else name


class Journey(unittest.TestCase):
    def setUp(self):
        HEARD.clear()
        alone = {**os.environ, "XDG_DATA_DIRS": str(WORK / "share")}  # whatever is installed here
        self.program = started(PROGRAM, env=alone, stdout=subprocess.PIPE)
        self.window = window()
        run("xdotool", "windowfocus", "--sync", self.window)
        self.app = wait_for(self.application)

    def tearDown(self):
        self.program.kill()
        self.program.wait()
        self.program.stdout.close()

    def application(self):
        for app in pyatspi.Registry.getDesktop(0):
            if app and app.get_process_id() == self.program.pid and app.childCount:
                return app
        return None

    def find(self, role, name):
        def accessible():
            for node in nodes(self.app):
                if role_of(node) == role and node.name == name:
                    return node
            self.app.clear_cache()  # which may have been filled while the window was being made
            return None
        return wait_for(accessible)

    def printed(self):
        """What can be read at the other end of the pipe, at once."""
        readable, _, _ = select.select([self.program.stdout], [], [], 5)
        return os.read(self.program.stdout.fileno(), 1 << 16) if readable else None

    def heard(self):
        """What a screen reader was told to say since the last time."""
        while GLib.MainContext.default().iteration(False):
            pass
        said, HEARD[:] = HEARD[:], []
        return said

    def shown_text(self):
        text = self.find("text", "テキスト").queryText()
        return text.getText(0, text.characterCount)

    def press(self, role, name):
        self.find(role, name).queryAction().doAction(0)

    def quit_within_a_second(self):
        started = time.monotonic()
        keys("ctrl+q")
        self.program.wait(5)
        self.assertLess(time.monotonic() - started, 1.0)

    def focused(self, role=None):
        self.app.clear_cache()
        return [n for n in nodes(self.app) if n.getState().contains(pyatspi.STATE_FOCUSED)
                and role in (None, role_of(n))]

    def focus(self, role, name):
        action = self.find(role, name).queryAction()
        names = [action.getName(i) for i in range(action.nActions)]
        action.doAction(names.index("SetFocus"))

    def value(self, role, name):
        value = self.find(role, name).queryValue()
        return value.minimumValue, value.currentValue, value.maximumValue

    def test_a_screen_reader_is_told_what_the_eye_sees(self):
        self.assertEqual(self.value("slider", "Font Size"), (10, 14, 40))
        self.focus("separator", "サイドバーの境界")
        before = self.value("separator", "サイドバーの境界")[1]
        keys("Right")
        wait_for(lambda: self.value("separator", "サイドバーの境界")[1] == before + 10)
        keys("shift+Tab", "Down", "Down", "Right", "Down")
        row = self.find("table cell", "サブフォルダB1")
        self.assertEqual(row.description, "レベル 2")
        wait_for(lambda: row.getState().contains(pyatspi.STATE_SELECTED))
        self.assertTrue(self.find("table cell", "フォルダB").getState().contains(pyatspi.STATE_EXPANDED))
        self.press("button", "船🛥")
        wait_for(lambda: self.shown("船🛥").description == "左岸から 50、右へ航行中")
        self.assertEqual(self.shown("寄付").description, "", "not the name once more")
        keys("ctrl+comma")
        self.find("frame", "設定")

    def test_a_file_is_loaded_and_read_at_the_size_one_likes(self):
        path = WORK / "yomu.txt"
        path.write_text("吾輩は猫である。🐱\n名前はまだ無い。", encoding="utf-8")
        keys("shift+Tab")  # away from the text, to which loading leads back
        self.press("button", "読込")
        window("開く")
        wait_for(lambda: self.focused("text")[0].name != "テキスト")
        run("xdotool", "type", "--delay", "1", str(path))
        keys("Return")
        wait_for(lambda: self.shown_text() == "吾輩は猫である。🐱\n名前はまだ無い。")
        keys("Right", "Right", "shift+Right", "ctrl+f")  # は, which is looked for
        self.find("label", "2 件中 1 件目")
        keys("F3", "F3")
        self.find("label", "2 件中 1 件目（先頭から検索）")
        keys("Escape", "ctrl+plus", "ctrl+plus")
        self.find("label", "16 pt")
        keys("ctrl+End", "a")
        wait_for(lambda: self.shown_text().endswith("a"))
        keys("ctrl+z")
        wait_for(lambda: not self.shown_text().endswith("a"))

    def test_a_toggle_is_on_disk_when_it_is_killed_right_behind_the_click(self):
        keys("ctrl+comma")
        window("設定")
        for stored in ("1", "0"):
            self.press("check box", "自律型")
            self.assertIn(f"IntKeyToggle5={stored}", STORE.read_text())  # handled when press returns
        self.press("check box", "自律型")
        self.program.send_signal(signal.SIGKILL)
        self.assertIn("IntKeyToggle5=1", STORE.read_text())

    def shown(self, name):
        def there():
            self.app.clear_cache()
            return [n for n in nodes(self.app) if n.name == name and role_of(n) == "button"
                    and n.getState().contains(pyatspi.STATE_SHOWING)]
        return wait_for(there)[-1]

    def test_the_text_becomes_a_pdf_unless_the_dialog_is_cancelled(self):
        downloads = WORK / "Downloads"
        pdf = downloads / "名称未設定.pdf"
        self.press("button", "簡易PDF")  # there is no such folder yet, which is said
        wait_for(lambda: [n.name for n in self.focused("button")] == ["OK"])
        keys("Return")
        wait_for(lambda: [n.name for n in self.focused("text")] == ["テキスト"])
        downloads.mkdir()
        keys("a", "b", "c")
        wait_for(lambda: self.shown_text().startswith("abc"))
        self.press("button", "簡易PDF")
        window("印刷")
        keys("Escape")
        wait_for(lambda: not run("xdotool", "search", "--onlyvisible", "--name", "^.*$").count("印刷"))
        self.assertEqual(os.listdir(downloads), [])
        self.press("button", "簡易PDF")
        window("印刷")
        self.press("check box", "ページ番号を付ける(G)")
        keys("Return")
        self.assertEqual(wait_for(self.heard), ["書き出しました"])
        self.assertEqual(os.listdir(downloads), ["名称未設定.pdf"])
        text = run("pdftotext", "-raw", str(pdf), "-")
        self.assertTrue(text.startswith("abcアプリ起動後に"), text)
        self.assertTrue(text.endswith("\n1\n\f"), "the number of the page")
        self.assertIn("595 x 842", run("pdfinfo", str(pdf)))

    def test_a_run_prints_its_lines_while_the_window_is_used(self):
        self.press("button", "別スレッド")
        wait_for(lambda: self.shown_text() == "スレッド動作中")
        lines = b""
        while not lines.endswith(b"product code :20250401\n"):
            part = self.printed()
            self.assertTrue(part, "the run came to a stop")
            lines += part
        self.assertEqual(lines.count(b"\n"), 904777)
        wait_for(lambda: self.shown_text() == "動作完了")

    def test_a_reader_that_stalls_holds_up_neither_window_nor_quitting(self):
        self.press("button", "別スレッド")
        self.press("button", "別スレッド")
        self.press("button", "🐦Bird")
        window("🐦Bird に餌をやりました")
        keys("Return")
        self.press("button", "居場所")
        window("居場所に戻りました")
        keys("Escape")
        wait_for(lambda: self.shown_text() == "スレッド動作中")

        def stalled():
            with open(f"/proc/{self.program.pid}/fd/1", "wb", buffering=0) as end:
                return not select.select([], [end], [], 0)[1]
        wait_for(stalled)
        self.quit_within_a_second()

    def test_a_browser_that_starts_may_come_to_the_front(self):
        entry = Path(os.environ["XDG_DATA_HOME"], "applications", "web.desktop")
        told = WORK / "told"
        entry.parent.mkdir(parents=True, exist_ok=True)
        entry.write_text("[Desktop Entry]\nType=Application\nName=AA Web\nCategories=WebBrowser;\n"
                         f"StartupNotify=true\nExec=sh -c 'echo $DESKTOP_STARTUP_ID >>\"$0\"' {told}\n")
        self.addCleanup(entry.unlink)
        self.tearDown()
        self.setUp()
        self.find("list item", "AA Web")
        self.assertEqual(self.find("combo box", "ブラウザを選択").description, "AA Web")
        self.press("button", "起動")
        self.assertRegex(wait_for(told.read_text), r"-web-\d+_TIME[1-9]\d*\n$")

    def test_it_quits_within_a_second_under_an_open_dialog(self):
        for button, title in (("読込", "開く"), ("居場所", "居場所に戻りました")):
            keys("ctrl+n")
            second = window("Tarumine 2")
            self.press("button", button)
            window(title)
            run("xdotool", "windowfocus", "--sync", second)
            self.quit_within_a_second()
            self.assertEqual(self.program.stdout.read(), b"", "nobody has pressed anything")
            self.tearDown()
            self.setUp()


def on_own_display():
    """From here on there is a display, a window manager and a bus for this script alone, until it ends."""
    for unwanted in ("QT_QPA_PLATFORM", "XDG_DATA_DIRS"):  # the bus looks for its services in the latter
        os.environ.pop(unwanted, None)
    os.environ["DISPLAY"] = ":" + answered("Xvfb", "-noreset", "-screen", "0", "1600x1000x24", "-displayfd")
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = answered("dbus-daemon", "--session", "--nofork", "--print-address")
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    started("openbox")

    def managed_windows():
        return run("xdotool", "get_num_desktops")  # which a window manager answers, once there is one
    wait_for(managed_windows)


if __name__ == "__main__":
    on_own_display()
    import pyatspi
    from gi.repository import GLib
    HEARD = []
    pyatspi.Registry.registerEventListener(lambda event: HEARD.append(event.any_data), "object:announcement")
    unittest.main(argv=sys.argv[:1] + sys.argv[2:], verbosity=2)
