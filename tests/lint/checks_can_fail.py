"""Each check passes a good sample and finds what is wrong with a bad one."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

import check_engine_libraries
import check_format
import check_headers
import check_layering
import check_names
import check_shell
import check_sleeps
import check_tidy
import check_words

RULES = {"platform": set(), "audio": {"platform"}, "audio/ui": {"audio"}}


class ChecksCanFail(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve() / "project"
        self.root.mkdir()
        subprocess.run(["git", "init", "--quiet", str(self.root)], check=True)

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)
        return file

    def assert_finds(self, problems, *parts):
        self.assertEqual(len(problems), 1, problems)
        for part in parts:
            self.assertIn(part, problems[0])

    def test_layering_lets_arrows_point_down(self):
        self.write("src/audio/Clip.cpp", '#include "audio/Clip.h"\n#include "platform/Paths.h"\n#include <vector>\n')
        self.write("src/audio/ui/Box.cpp", '#include <QWidget>\n#include "audio/Clip.h"\n#include "Box.moc"\n')
        self.write("tests/gui/box_test.cpp", "#include <QTest>\n")
        self.assertEqual(check_layering.problems(self.root, RULES), [])

    def test_layering_finds_qt_in_an_engine_room(self):
        for header in ["QString", "QtCore/qglobal.h", "QtTest", "qglobal.h"]:
            with self.subTest(header):
                self.write("src/audio/Clip.h", f"#include <{header}>\n")
                self.assert_finds(check_layering.problems(self.root, RULES), "src/audio/Clip.h:1", header)

    def test_layering_finds_an_arrow_that_points_up(self):
        self.write("src/platform/Paths.cpp", '\n#include "audio/Clip.h"\n')
        self.assert_finds(check_layering.problems(self.root, RULES), "src/platform/Paths.cpp:2", "audio/Clip.h")

    def test_layering_finds_a_window_used_by_the_engine(self):
        self.write("src/audio/Clip.cpp", '#include "audio/ui/Box.h"\n')
        self.assert_finds(check_layering.problems(self.root, RULES), "audio/ui/Box.h")

    def test_layering_keeps_one_system_s_headers_below_the_platform(self):
        header = '#include "platform/linux/Descriptor.h"\n'
        self.write("src/platform/linux/Paths.cpp", header)
        self.assertEqual(check_layering.problems(self.root, RULES), [])
        for path in ["src/audio/Clip.cpp", "src/platform/Paths.h"]:
            with self.subTest(path):
                file = self.write(path, header)
                self.assert_finds(check_layering.problems(self.root, RULES), f"{path}:1", "platform/linux")
                file.unlink()

    def test_layering_finds_an_include_that_is_no_path(self):
        self.write("src/audio/Clip.cpp", '#include "Clip.h"\n')
        self.assert_finds(check_layering.problems(self.root, RULES), "not a path")

    def test_layering_finds_a_room_without_a_target(self):
        self.write("src/attic/Box.cpp", '#include "audio/Clip.h"\n')
        self.assert_finds(check_layering.problems(self.root, RULES), "attic")

    def test_names_lets_a_name_be_declared_and_nested_twice(self):
        self.write("src/audio/Clip.h", "namespace tembrel {\nclass Box;\n// struct Box {};\nstruct Clip {\n"
                   "  enum class Kind { None };\n  int count = 1'000;\n};\ninline Box* Open(struct Lid& lid) { return {}; }\n}\n")
        self.write("src/view/Box.h", "namespace tembrel {\nclass Clip;\nclass Box final : public Base {\n"
                   "  struct Kind {};\n};\nnamespace other {\nstruct Clip {};\n}\n}\n")
        self.write("src/view/Box.cpp", "namespace tembrel {\nnamespace {\nstruct Clip {};\n}\n}\n")
        self.write("tests/view/Clip.h", "namespace tembrel {\nstruct Clip {};\n}\n")
        self.assertEqual(check_names.problems(self.root), [])

    def test_names_finds_a_type_that_two_headers_define(self):
        self.write("src/audio/Clip.h", "namespace tembrel {\nstruct Clip {\n  int start = 0;\n};\n}\n")
        for definition in ["struct Clip {};", "class Clip final : public Base {\n};", "enum class Clip : int { None };",
                           "enum Clip { kNone };", "template <typename T>\nstruct Clip {};", "struct alignas(4) Clip {\n};"]:
            with self.subTest(definition):
                self.write("src/view/ui/Window.h", "#define LID {\nnamespace tembrel {\n" + definition + "\n}\n")
                self.assert_finds(check_names.problems(self.root), "src/view/ui/Window.h:", "tembrel::Clip",
                                  "src/audio/Clip.h:2")

    def test_engine_libraries_finds_qt_in_the_editor(self):
        if len(sys.argv) > 1:
            self.assertNotEqual(check_engine_libraries.problems([sys.argv[1]]), [])
        self.assertEqual(check_engine_libraries.problems(["/bin/true"]), [])

    def header_project(self, header_text, listed="src/room/Box.h"):
        self.write("src/room/Box.h", header_text)
        self.write("src/room/Other.h", "#pragma once\n")
        self.write("src/room/Box.cpp", "")
        self.write("CMakeLists.txt",
                   "cmake_minimum_required(VERSION 3.25)\nproject(Sample CXX)\nadd_library(room src/room/Box.cpp)\n"
                   f"target_sources(room PUBLIC FILE_SET HEADERS BASE_DIRS src FILES {listed})\n"
                   "set_target_properties(room PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)\n")
        build = self.root.parent / "build"
        self.configure(build)
        return build

    def configure(self, build):
        subprocess.run(["cmake", "-G", "Ninja", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-S", str(self.root), "-B",
                        str(build)], check=True, capture_output=True)

    def test_headers_finds_one_that_needs_another(self):
        both = "src/room/Box.h src/room/Other.h"
        build = self.header_project("#pragma once\n#include <vector>\nstd::vector<int> box;\n", both)
        self.assertEqual(check_headers.problems(self.root, build), [])
        self.write("src/room/Box.h", "#pragma once\nstd::vector<int> box;\n")
        self.assert_finds(check_headers.problems(self.root, build), "Box.h", "error")

    def test_headers_finds_one_that_is_not_checked(self):
        build = self.header_project("#pragma once\n")
        self.assert_finds(check_headers.problems(self.root, build), "src/room/Other.h")

    def test_format_finds_a_crooked_line(self):
        self.write(".clang-format", "BasedOnStyle: Google\n")
        self.write("src/Box.cpp", "int box = 1;\n")
        self.assertEqual(check_format.problems(self.root), [])
        self.write("src/Box.cpp", "int   box=1 ;\n")
        self.assert_finds(check_format.problems(self.root), "src/Box.cpp:1")

    def test_words_finds_each_kind(self):
        self.write("README.md", "A part of 1.2 seconds, a special /usr/share/work/ folder, src/root/Box.h\n")
        self.assertEqual(check_words.problems(self.root), [])
        for text in ["see /wo" + "rk/main", "/ro" + "ot/x", "the spe" + "c says", "Par" + "t 6.3", "iss" + "ue #2",
                     "a specificatio" + "n", "http://deb" + ".debian.org/debian"]:
            with self.subTest(text):
                self.write("src/Box.h", f"// good\n// {text}\n")
                self.assert_finds(check_words.problems(self.root), "src/Box.h:2")

    def test_words_looks_at_file_names(self):
        self.write("docs/the spe" + "c.txt", "")
        self.assert_finds(check_words.problems(self.root), "file's name")

    def test_sleeps_finds_them_in_tests(self):
        self.write("tests/gui/box_test.cpp", "QTRY_VERIFY(box);  // never QTest::qWait(5)\nQTest::qWaitFor(ready);\n")
        self.write("tests/program/desktop.bash", "sleep 0.05\n")
        self.write("tests/program/quit.bash", "wait_for window asleep\n")
        self.write("tests/support/Eventually.h", "std::this_thread::sleep_for(2ms);\n")
        self.write("scripts/wait.sh", "sleep 1\n")
        self.assertEqual(check_sleeps.problems(self.root), [])
        for path, text in [("gui/a.cpp", "QTest::qSleep(5);"), ("gui/b.cpp", "QTest::qWait(50);"),
                           ("gui/c.cpp", "std::this_thread::sleep_for(1s);"), ("gui/d.cpp", "usleep(5);"),
                           ("audio/clock_test.cpp", "nanosleep(&time, nullptr);"), ("batch/g.bash", "sleep 1"),
                           ("program/e.bash", "  sleep 1"), ("program/f.bash", "start; sleep 1"),
                           ("program/h.bash", 'xdotool mousemove "$x" 300 sleep 0.02')]:
            with self.subTest(text):
                file = self.write(f"tests/{path}", text + "\n")
                self.assert_finds(check_sleeps.problems(self.root), f"tests/{path}:1")
                file.unlink()

    def test_shell_finds_bad_syntax_and_a_bad_habit(self):
        self.write("run", '#!/usr/bin/env bash\necho "$1"\n')
        self.assertEqual(check_shell.problems(self.root), [])
        self.write("run", "#!/usr/bin/env bash\nrm $1/*\n")
        self.assert_finds(check_shell.problems(self.root), "SC2086")
        self.write("run", "#!/usr/bin/env bash\nif true; then\n")
        self.assertIn("syntax error", check_shell.problems(self.root)[0])

    def tidy_problems(self):
        build = self.root.parent / "build"
        build.mkdir(exist_ok=True)
        source = self.root / "src/Box.cpp"
        entry = {"directory": str(build), "file": str(source), "command": f"c++ -c {source} -o Box.o"}
        (build / "compile_commands.json").write_text(json.dumps([entry]))
        return list(check_tidy.Tidy(self.root, build, self.root.parent / "cache").problems())

    def test_tidy_finds_a_null_that_is_zero(self):
        self.write(".clang-tidy", "Checks: '-*,modernize-use-nullptr'\nWarningsAsErrors: '*'\n")
        self.write("src/Box.cpp", "int* box = nullptr;\n")
        self.assertEqual(self.tidy_problems(), [])
        self.write("src/Box.cpp", "int* box = 0;\n")
        self.assert_finds(self.tidy_problems(), "modernize-use-nullptr")

    def test_tidy_finds_a_source_that_is_not_built(self):
        self.write(".clang-tidy", "Checks: '-*,modernize-use-nullptr'\n")
        self.write("src/Box.cpp", "int* box = nullptr;\n")
        self.write("src/Forgotten.cpp", "\n")
        self.assert_finds(self.tidy_problems(), "Forgotten.cpp", "not part of the build")

    def test_tidy_forgets_when_a_header_changes(self):
        self.write(".clang-tidy",
                   "Checks: '-*,modernize-use-nullptr'\nWarningsAsErrors: '*'\nHeaderFilterRegex: '.*'\n")
        header = self.write("src/Box.h", "inline int* box = nullptr;\n")
        self.write("src/Box.cpp", '#include "Box.h"\n')
        build = self.root.parent / "build"
        self.write("CMakeLists.txt",
                   "cmake_minimum_required(VERSION 3.25)\nproject(Sample CXX)\nadd_library(box src/Box.cpp)\n")
        self.configure(build)
        subprocess.run(["cmake", "--build", str(build)], check=True, capture_output=True)
        cache = self.root.parent / "cache"
        self.assertEqual(list(check_tidy.Tidy(self.root, build, cache).problems()), [])
        self.assertEqual(len(list(cache.glob("*.clean"))), 1)
        header.write_text("inline int* box = 0;\n")
        self.assert_finds(list(check_tidy.Tidy(self.root, build, cache).problems()), "modernize-use-nullptr")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
