"""The parts of the generator."""

import pytest

from generator.diagram import NoDiagram, dot_of, drawing
from generator.documents import Documents
from generator.exchange import read_exchange
from generator.markdown import code, sentence, shell, table, words
from generator.screen import RULER, Screen

EXCHANGE = """\
# Two screens of a list.
# The second one goes on.

== CPDNTrans
params:
  "strKeyCompany": "KES"
  "strKeyElArray()": ["", "1"]
command: "PDN/KES"
screen:
|PDN/KES |
|A "NAME": |
|>|
results:
  "strKeyCoNames": "A: B"
  "blnKeyEndOfBlock": true

# A comment between steps.
== CPDNTrans
screen:
|PDMD    |
state: previous
results raises: 5075
reported: [5130]
"""


@pytest.fixture
def exchange(tmp_path):
    def read(text):
        path = tmp_path / "a.exchange"
        path.write_text(text, encoding="utf-8")
        return read_exchange(path)

    return read


def test_an_exchange_is_read(exchange):
    read = exchange(EXCHANGE)
    first, second = read.steps
    assert read.about == "Two screens of a list. The second one goes on."
    assert first.params == {"strKeyCompany": "KES", "strKeyElArray()": ["", "1"]}
    assert first.command == "PDN/KES"
    assert first.screen == ["PDN/KES ", 'A "NAME": ', ">"]
    assert first.results == {"strKeyCoNames": "A: B", "blnKeyEndOfBlock": True}
    assert first.state == first.params
    assert second.params is None and second.results is None
    assert second.results_error == 5075
    assert second.state == first.results


def test_what_is_no_line_of_an_exchange_is_refused(exchange):
    with pytest.raises(ValueError, match="a.exchange:2: no line of an exchange: answer:"):
        exchange("== CPDNTrans\nanswer:\n")


def test_the_ruler_stands_above_the_columns_of_the_lines():
    plain = Screen(["*T* SMITH", ""], 99).html()
    ruler, first, second = plain.split("<pre>")[1].split("</pre>")[0].split("\n")
    assert ruler == f'<span class="ruler">     {RULER}</span>'
    assert first == '<span class="number"> 99  </span>*T* SMITH'
    assert second == '<span class="number">100  </span>'
    assert len(RULER) == 80
    assert RULER[9] == "1" and RULER[79] == "8"


def test_a_screen_without_numbers_begins_at_the_ruler():
    assert Screen(["A"], None).html().count(f'<span class="ruler">{RULER}</span>\nA</pre>') == 1


def test_values_are_coloured_and_the_shortest_is_on_top():
    screen = Screen(["<SR> VGML", "X"], 7)
    screen.add([{"line": 7, "column": 1, "length": 9}, {"inserted": " "}], "value", 'the "text"')
    screen.add([{"line": 7, "column": 6, "length": 4}, {"line": 9, "column": 1, "length": 1}], "part", "code")
    assert screen.count() == 2
    assert (
        '<mark class="value" title="the &quot;text&quot;">&lt;SR&gt; </mark><mark class="part" title="code">VGML</mark>'
        in screen.html()
    )


def test_a_piece_beyond_the_line_ends_with_it():
    screen = Screen(["AB   "])
    screen.add([{"line": 0, "column": 2, "length": 4}], "mark", "m")
    assert 'A<mark class="mark" title="m">B</mark></pre>' in screen.html()


def test_columns_without_content_are_left_out_but_not_the_first():
    assert table(["A", "B", "C"], [["", "", "x"], ["", "", "y"]]) == "| A | C |\n| --- | --- |\n|  | x |\n|  | y |\n"
    assert table(["A"], []) == ""


def test_texts_cannot_be_taken_for_markdown():
    assert code("*C* | <x>") == "<code>*C* &#124; &lt;x&gt;</code>"
    assert code(" RM ") == "<code>&nbsp;RM&nbsp;</code>"
    assert words("a *b* [c] strKeyElement() d") == "a &#42;b&#42; &#91;c&#93; <code>strKeyElement()</code> d"


def test_a_meaning_becomes_a_sentence_and_a_key_stays_as_it_is():
    assert sentence("the name") == "The name."
    assert sentence("intKeyIndex is missing.") == "<code>intKeyIndex</code> is missing."


def test_a_command_line_can_be_typed():
    assert shell(["tool", "a()=1", "b"], "out\n") == "```console\n$ tool 'a()=1' b\nout\n```\n"


def test_a_flowchart_is_drawn_with_its_groups():
    dot = dot_of(
        'flowchart TB\n    a["A<br/>b"]\n    subgraph g["G"]\n        c{{"C"}}\n    end\n\n'
        '    a -- "in" --> g --> a\n    a -. "sent" .-> c --- a\n'
    )
    assert dot.endswith(
        'a [label="A\\nb"];\n'
        'subgraph cluster_g {\nlabel="G"; fontname="sans-serif"; fontsize=10; style=rounded;\n'
        'c [label="C" shape=hexagon];\n}\n'
        'a -> c [label=" in ", lhead=cluster_g];\nc -> a [ltail=cluster_g];\n'
        'a -> c [label=" sent ", style=dashed];\nc -> a [dir=none];\n}\n'
    )
    assert drawing("flowchart TB\na[\"A\"]\n").count("<svg") == 1
    with pytest.raises(NoDiagram):
        dot_of("flowchart TB\n    a ==> b\n")


@pytest.fixture
def documents(tmp_path):
    root = tmp_path / "root"
    for name, text in {
        "docs/a.md": "[b](b.md#x) [c](../src/c.h) [d](../src/) [e](https://e.example/) [f](#f)\n"
        "\n```\n[g](g.md)\n```\n",
        "docs/b.md": "[![p](p.png)](../README.md)\n",
        "docs/p.png": "",
        "README.md": "[a](docs/a.md)\n",
        "src/c.h": "int c;\n",
        "src/README.md": "# Sources\n",
        "site/guides/g.md": "<!-- file: x.txt -->\n"
        "[CPXTrans](../reference/classes/CPXTrans.md) [gone](../../docs/z.md)\n",
    }.items():
        (root / name).parent.mkdir(parents=True, exist_ok=True)
        (root / name).write_text(text, encoding="utf-8")
    return Documents(root, tmp_path / "target")


def page(documents, name):
    return (documents.target / name).read_text(encoding="utf-8")


def test_links_lead_to_the_pages_that_show_their_targets(documents):
    for name in ("docs/a.md", "docs/b.md", "README.md"):
        documents.add(name)
    documents.add_wanted()
    assert page(documents, "docs/a.md").startswith(
        "[b](b.md#x) [c](../src/c.h.md) [d](../src/index.md) [e](https://e.example/) [f](#f)\n"
    )
    assert "[g](g.md)" in page(documents, "docs/a.md")
    assert page(documents, "docs/b.md") == "[![p](p.png)](../project/readme.md)\n"
    assert page(documents, "project/readme.md") == "[a](../docs/a.md)\n"
    assert "````cpp\nint c;\n````" in page(documents, "src/c.h.md")
    assert page(documents, "src/index.md") == "# Sources\n"
    assert (documents.target / "docs/p.png").exists()
    assert documents.broken == []


def test_a_guide_shows_the_names_of_its_files_and_a_wrong_link_is_known(documents):
    documents.add("site/guides/g.md")
    text = page(documents, "guides/g.md")
    assert '<p class="file">x.txt</p>' in text
    assert "[CPXTrans](../reference/classes/CPXTrans.md)" in text
    assert documents.broken == ["site/guides/g.md: there is no docs/z.md"]
