#!/usr/bin/env python3
"""What the check for texts without keys finds, and what it leaves alone."""

import pathlib
import re
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "packaging"))
import texts  # noqa: E402


class TextsTest(unittest.TestCase):
    def found_in(self, name, source):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / name
            file.write_text(source)
            return [re.search(r":(\d+): (.*) is shown", fault).groups()
                    for fault in texts.unkeyed_texts(file)]

    def in_qml(self, *lines):
        return self.found_in("View.qml", "\n".join(lines))

    def in_cpp(self, *lines):
        return self.found_in("model.cpp", "\n".join(lines))

    def test_a_plain_text_is_found_where_it_is_shown(self):
        for place in ("text", "title", "message", "actionText", "placeholderText", "description",
                      "Accessible.name", "Accessible.description", "HelpTag.text"):
            with self.subTest(place):
                self.assertEqual(self.in_qml("Item {", f'    {place}: "Plain"', "}"),
                                 [("2", '"Plain"')])

    def test_a_plain_text_is_found_in_a_choice_and_in_an_assignment(self):
        self.assertEqual(self.in_qml('text: ok ? qsTr("Key (one)")', '         : "Plain"'),
                         [("2", '"Plain"')])
        self.assertEqual(self.in_qml('onClicked: label.text = "Plain"'), [("1", '"Plain"')])

    def test_keys_and_what_nobody_reads_are_left_alone(self):
        self.assertEqual(self.in_qml(
            '// text: "A comment"', 'text: qsTr("A key with ) and %1").arg(root.name)',
            'objectName: "list"', 'name: "folder.fill"', 'color: "red"', 'text: ""',
            'text: root.kind === "file" ? qsTr("File") : qsTr("Folder")',
            'text: root.count.toLocaleString(Qt.locale(), "f", 0)'), [])

    def test_a_sentence_is_found_in_cpp(self):
        self.assertEqual(self.in_cpp('return QStringLiteral("Is plain");'), [("1", '"Is plain"')])

    def test_keys_and_names_are_left_alone_in_cpp(self):
        self.assertEqual(self.in_cpp(
            'return tr("Is a key");', 'Option{"star", QT_TRANSLATE_NOOP("Options", "A star")};',
            'QCoreApplication::translate("Options",', '                            "Is a key");',
            'file(QStringLiteral("Nestlet unreadable.json"));', '// "Is a comment"'), [])

    def test_a_plural_without_english_is_found(self):
        english = texts.plurals(texts.ENGLISH)
        self.assertIn(("FolderItemsSection", "%Ln item(s)"), english)
        self.assertTrue(all(english.values()))

    def test_the_program_has_no_plain_text(self):
        self.assertEqual(texts.all_faults(), [])


if __name__ == "__main__":
    unittest.main()
