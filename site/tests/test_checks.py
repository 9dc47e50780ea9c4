"""The checks of the guides and of the links fail where they should."""

import os
from pathlib import Path

import documents_check
import examples
import links
import pytest

ROOT = Path(__file__).resolve().parents[2]


def check(tmp_path, text):
    guide = tmp_path / "guide.md"
    guide.write_text(text, encoding="utf-8")
    return examples.check(guide, tmp_path)


def block(text, language="console", comment=""):
    return f"{comment}```{language}\n{text}```\n"


def test_commands_are_run_and_their_output_compared(tmp_path):
    text = block("a b\n", "text", "<!-- file: x.txt -->\n") + block("$ cat x.txt\na b\n$ echo c |\n    tr c d\nd\n")
    assert check(tmp_path, text) == {"run": 1, "file": 1, "shown": 0, "not run": 0}


@pytest.mark.parametrize(
    "output",
    ["", "a\n", "a\nb\nc\n", "a\nB\n", "a\n\nb\n", "a.\nb\n", "...\na\n"],
)
def test_another_output_fails(tmp_path, output):
    with pytest.raises(examples.Wrong, match=r"guide.md:1: \$ printf"):
        check(tmp_path, block("$ printf 'a\\nb\\n'\n" + output))


@pytest.mark.parametrize("output", ["a\nb\n", "...\nb\n", "a\n...\n", "...\n", "a\n...\nb\n"])
def test_three_dots_stand_for_any_lines(tmp_path, output):
    check(tmp_path, block("$ printf 'a\\nb\\n'\n" + output))


def test_messages_on_standard_error_are_output(tmp_path):
    with pytest.raises(examples.Wrong):
        check(tmp_path, block("$ echo oops >&2\n"))


@pytest.mark.parametrize("language", ["bash", "text", "cpp", ""])
def test_a_block_that_nobody_checks_fails(tmp_path, language):
    with pytest.raises(examples.Wrong, match="no comment says what the block is"):
        check(tmp_path, block("x\n", language))


def test_a_block_that_is_shown_has_to_be_in_its_file(tmp_path, monkeypatch):
    monkeypatch.setattr(examples, "ROOT", tmp_path)
    (tmp_path / "a.vbs").write_text("one\ntwo\nthree\n", encoding="utf-8")
    comment = "<!-- shown: a.vbs -->\n"
    assert check(tmp_path, block("two\nthree\n", "vbs", comment))["shown"] == 1
    for text in ("two\nTHREE\n", "wo\nthree\n", "one\nthree\n"):
        with pytest.raises(examples.Wrong, match="does not contain the block"):
            check(tmp_path, block(text, "vbs", comment))
    with pytest.raises(examples.Wrong, match="there is no .*b.vbs"):
        check(tmp_path, block("two\n", "vbs", "<!-- shown: b.vbs -->\n"))


def test_a_guide_without_an_example_fails(tmp_path):
    with pytest.raises(examples.Wrong, match="it has no example"):
        check(tmp_path, "Words.\n" + block("x\n", "text", "<!-- not run: no reason -->\n"))


def wrong_in(tmp_path, monkeypatch, text):
    monkeypatch.setenv("PATH", f"{ROOT}/build/ci-gcc/bin:{os.environ['PATH']}")
    (tmp_path / "page.md").write_text(text, encoding="utf-8")
    return documents_check.check(tmp_path / "page.md", tmp_path)


def test_a_document_may_name_files_that_are_not_there(tmp_path, monkeypatch):
    shell = "$ vantro-profile parse -j 4 a.txt | jq .\nvantro-profile elements PHI \\\n    --index 1 < b.txt\nls\n"
    shell += "vantro-profile: a message\n"
    power = "vantro-profile parse `\n    --csv a\\b.txt\n"
    text = block(shell, "") + block(power, "powershell") + block('{"a":1}\n{"a":2}\n', "json")
    assert wrong_in(tmp_path, monkeypatch, text) == (4, [])


@pytest.mark.parametrize(
    "language,text,message",
    [
        ("", "vantro-profile parse --seperator x a.txt | jq .\n", "there is no option '--seperator'"),
        ("bash", "vantro-profile elem PHI\n", "there is no subcommand or option 'elem'"),
        ("powershell", "vantro-profile parse `\n    --jbs 3\n", "there is no option '--jbs'"),
        ("json", '{"a":}\n', "no JSON"),
    ],
)
def test_an_option_that_is_not_there_is_wrong_in_a_document(tmp_path, monkeypatch, language, text, message):
    count, wrong = wrong_in(tmp_path, monkeypatch, block(text, language))
    assert count == len(wrong) == 1
    assert message in wrong[0]


def site(tmp_path, pages):
    for name, text in pages.items():
        (tmp_path / name).parent.mkdir(parents=True, exist_ok=True)
        (tmp_path / name).write_text(text, encoding="utf-8")
    return links.check(tmp_path)


def test_links_inside_the_site_are_followed(tmp_path):
    inside, outside, wrong = site(
        tmp_path,
        {
            "index.html": '<a href="a/b.html#x"></a><a href="#y" id="y"></a><a href="https://e.example/"></a>'
            '<a href="a/"></a><img src="p%20q.png"><a href="/a/b.html"></a>',
            "a/b.html": '<h1 id="x"></h1><a href="../index.html"></a>',
            "a/index.html": "",
            "p q.png": "",
        },
    )
    assert (inside, outside, wrong) == (6, 1, [])


def test_a_link_to_no_file_or_no_place_is_wrong(tmp_path):
    _, _, wrong = site(tmp_path, {"a.html": '<a href="b.html"></a><a href="#z"></a><script src="x.js"></script>'})
    assert wrong == [
        "a.html: b.html: no such file",
        "a.html: #z: no such place on the page",
        "a.html: x.js: no such file",
    ]
