#!/usr/bin/env python3
"""script/check-walls over small trees that are made for each test."""

import os
import subprocess
import sys
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../script/check-walls")

TABLE = """
base:
pages/kit LOGIC: base
pages/* LOGIC: base pages/kit
ui: base
ui/list: ui
pages/kit: base ui
pages/*: base ui pages/kit
app: base ui pages/*
cli: base pages/*
online (to come): base
tests/**: base ui pages/* app
<Q*>: ui pages/* app tests/**
"""

# A tree in which everything is as the table wants it.
TREE = {
    "script/walls.txt": TABLE,
    "base/Text.h": "#include <string>\n",
    "ui/Button.h": '#include <QWidget>\n#include "base/Text.h"\n',
    "ui/list/List.h": '#include "ui/Button.h"\n',
    "pages/kit/Rows.h": '#include "base/Text.h"\n',
    "pages/kit/RowList.h": '#include "pages/kit/Rows.h"\n#include "ui/Button.h"\n',
    "pages/calls/CallLog.cpp": '#include "pages/calls/CallLog.h"\n',
    "pages/calls/CallLog.h": '#include "pages/kit/Rows.h"\n',
    "pages/calls/CallPage.cpp": '#include "pages/calls/CallLog.h"\n'
                                '#include "pages/kit/RowList.h"\n#include "CallPage.moc"\n',
    "pages/sms/SmsPage.h": "#include <QWidget>\n",
    "app/Main.cpp": '#include "pages/calls/CallLog.h"\n',
    "cli/Main.cpp": '#include "pages/calls/CallLog.h"\n#include "pages/kit/Rows.h"\n',
    "tests/support/Double.cpp": '#include "app/Main.h"\n',
    "tests/support/Double.h": "",
    "tests/calls/CallLogTest.cpp": '#include "tests/support/Double.h"\n',
    "base/CMakeLists.txt": "quorvi_library(quorvi_base SOURCES Text.cpp LIBS fmt::fmt)\n",
    "ui/CMakeLists.txt": "quorvi_library(quorvi_ui QT SOURCES Button.h list/List.h LIBS quorvi_base Qt6::Widgets)\n",
    "pages/CMakeLists.txt": "quorvi_feature(calls\n  LOGIC CallLog  # rows\n  UI CallPage)\n",
    "tests/support/CMakeLists.txt": "quorvi_library(quorvi_double SOURCES Double.cpp LIBS quorvi_base)\n",
    "app/CMakeLists.txt": "quorvi_program(quorvi QT SOURCES Main.cpp LIBS quorvi_calls_ui quorvi_ui)\n",
    "README.md": "See `base/Text.h`, `Text.h`, `base/Text`, `make it` and [this](ARCHITECTURE.md).\n",
    "ARCHITECTURE.md": "`app/` `base/` `cli/` `pages/` `pages/…/XPage.h` `script/` `tests/` `ui/`\n",
}


def problems_of(changes):
    """What the script says of the tree with some files changed, by line; nothing of a good tree."""
    with tempfile.TemporaryDirectory() as tree:
        for path, text in {**TREE, **changes}.items():
            os.makedirs(os.path.dirname(os.path.join(tree, path)), exist_ok=True)
            with open(os.path.join(tree, path), "w", encoding="utf-8") as file:
                file.write(text)
        run = subprocess.run([sys.executable, SCRIPT, tree], capture_output=True, text=True,
                             check=False)
        if run.returncode != (1 if run.stdout else 0) or run.stderr:
            raise AssertionError(f"ended with {run.returncode}: {run.stdout}{run.stderr}")
        return run.stdout.splitlines()


class CheckWalls(unittest.TestCase):
    def expect(self, changes, *problems):
        self.assertEqual(problems_of(changes), list(problems))

    def test_a_tree_in_order_is_no_news(self):
        self.expect({})

    def test_an_include_may_not_point_up(self):
        self.expect({"base/Text.h": '#include <string>\n#include "ui/Button.h"\n'},
                    "base/Text.h:2: base may not include ui/Button.h")

    def test_a_page_may_not_include_a_neighbour(self):
        self.expect({"pages/calls/CallPage.cpp": '#include "pages/sms/SmsPage.h"\n'},
                    "pages/calls/CallPage.cpp:1: pages/calls may not include pages/sms/SmsPage.h")

    def test_a_room_without_qt_may_not_include_its_headers(self):
        self.expect({"base/Text.h": "  #  include <QString>\n"},
                    "base/Text.h:1: base may not include <QString>")

    def test_logic_of_a_page_may_not_include_qt(self):
        self.expect({"pages/calls/CallLog.h": '#include "pages/kit/Rows.h"\n#include <QString>\n'},
                    "pages/calls/CallLog.h:2: pages/calls LOGIC may not include <QString>")

    def test_what_logic_includes_of_the_pages_is_logic_too(self):
        self.expect({"pages/kit/Rows.h": '#include "ui/Button.h"\n'},
                    "pages/kit/Rows.h:1: pages/kit LOGIC may not include ui/Button.h")

    def test_a_room_without_qt_may_include_only_the_logic_of_a_page(self):
        self.expect({"cli/Main.cpp": '#include "pages/kit/RowList.h"\n'},
                    "cli/Main.cpp:1: cli may not include pages/kit/RowList.h, which is no logic")

    def test_no_room_may_include_a_test(self):
        self.expect({"app/Main.cpp": '#include "tests/support/Double.h"\n'},
                    "app/Main.cpp:1: app may not include tests/support/Double.h")

    def test_a_program_may_not_link_a_double(self):
        self.expect({"app/CMakeLists.txt": "quorvi_program(quorvi SOURCES Main.cpp LIBS quorvi_double)\n"},
                    "app/CMakeLists.txt: quorvi may not link quorvi_double of tests/support")

    def test_a_program_may_not_compile_a_double(self):
        self.expect({"app/CMakeLists.txt": "quorvi_program(quorvi SOURCES ../tests/support/Double.cpp)\n"},
                    "app/CMakeLists.txt: quorvi may not compile tests/support/Double.cpp")

    def test_a_room_without_qt_may_not_link_it(self):
        self.expect({"base/CMakeLists.txt": "quorvi_library(quorvi_base LIBS Qt6::Core quorvi_ui)\n"},
                    "base/CMakeLists.txt: quorvi_base may not link Qt6::Core",
                    "base/CMakeLists.txt: quorvi_base may not link quorvi_ui of ui")

    def test_a_folder_that_the_table_does_not_name_is_an_error(self):
        self.expect({"sounds/Bell.h": "", "ARCHITECTURE.md": TREE["ARCHITECTURE.md"] + "`sounds/`\n"},
                    "sounds/Bell.h: sounds is no room of script/walls.txt")

    def test_an_include_of_an_unknown_folder_is_an_error(self):
        self.expect({"app/Main.cpp": '#include "sounds/Bell.h"\n#include "Other.h"\n'},
                    "app/Main.cpp:1: sounds is no room of script/walls.txt",
                    'app/Main.cpp:2: "Other.h" is not named from the top folder')

    def test_a_room_of_the_table_may_not_name_one_below_it(self):
        self.expect({"script/walls.txt": TABLE.replace("base:\n", "base: ui\n")},
                    "script/walls.txt:2: base may not name ui, which does not stand above it")

    def test_the_table_names_no_room_that_is_gone(self):
        self.expect({"script/walls.txt": TABLE + "sounds: base\n"},
                    "script/walls.txt:14: sounds has no folder")

    def test_a_room_to_come_that_is_there_is_an_error(self):
        self.expect({"online/Form.h": "", "ARCHITECTURE.md": TREE["ARCHITECTURE.md"] + "`online/`\n"},
                    "script/walls.txt:11: online has come")

    def test_a_mark_that_nobody_knows_is_an_error(self):
        self.expect({"script/walls.txt": TABLE.replace("online (to come)", "online (soon)")},
                    "script/walls.txt:11: no such mark: (soon)",
                    "script/walls.txt:11: online has no folder")

    def test_the_documents_name_only_what_is_there(self):
        self.expect({"README.md": "`base/Gone.h`\n`Gone.h` [a](base/Gone.md) `nowhere/Gone.h`\n"},
                    "README.md:1: there is no base/Gone.h",
                    "README.md:2: there is no Gone.h",
                    "README.md:2: there is no base/Gone.md")

    def test_the_architecture_names_every_folder(self):
        self.expect({"docs/guide.txt": ""}, "ARCHITECTURE.md: does not name docs/")


if __name__ == "__main__":
    unittest.main()
