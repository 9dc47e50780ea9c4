"""Tests of the tokeniser and its users; scripts/mutate.sh --self-test."""

import tempfile
import unittest
from pathlib import Path

from .explained import read_explained
from .mutants import chosen, places_in
from .reach import reached
from .tokens import tokens_of


def texts(source: str, **options) -> list[str]:
    return [token.text for token in tokens_of(source, **options)]


def changes(source: str, **options) -> set[tuple[str, str]]:
    return {(m.old, m.new) for place in places_in({"a.cpp": source}, **options) for m in place.mutants}


class Tokens(unittest.TestCase):
    def test_comments_are_left_out(self):
        self.assertEqual(texts('a // "b\n/* c " */ d'), ["a", "d"])

    def test_a_string_holds_comment_signs_and_quotes(self):
        self.assertEqual(texts(r'u"a//b\"c" + "/*"'), [r'u"a//b\"c"', "+", '"/*"'])

    def test_characters(self):
        self.assertEqual(texts(r"u'\'' '\"' u'/'"), [r"u'\''", r"'\"'", "u'/'"])

    def test_raw_strings_end_at_their_own_mark(self):
        self.assertEqual(texts('R"x(a)" // b)x" c'), ['R"x(a)" // b)x"', "c"])

    def test_numbers_with_separators_and_suffixes(self):
        self.assertEqual(texts("32'767LL 0x1FU 1.5"), ["32'767LL", "0x1FU", "1.5"])

    def test_longest_operators(self):
        self.assertEqual(texts("a<<=b<=>c->d::e"), ["a", "<<=", "b", "<=>", "c", "->", "d", "::", "e"])

    def test_directives_are_left_out(self):
        self.assertEqual(texts('a;\n  #define X(y) \\\n  y + 1\nb'), ["a", ";", "b"])

    def test_one_of_two_branches_is_compiled(self):
        source = "#if !defined(VANTRO_NO_SIMD) && x\na\n#elif __aarch64__\nz\n#else\nb\n#endif\nc"
        self.assertEqual(texts(source), ["a", "c"])
        self.assertEqual(texts(source, with_simd=False), ["b", "c"])


class Mutants(unittest.TestCase):
    def test_operators_between_blanks_alone_are_binary(self):
        self.assertEqual(changes("bool f(const T& a) { x = a < b; }") & {("<", "<="), ("&", "|")}, {("<", "<=")})
        self.assertNotIn(("<", "<="), changes("std::vector<int> a;"))

    def test_numbers(self):
        self.assertEqual(changes("Width w{6};"), {("6", "7"), ("6", "5"), ("6", "0")})

    def test_strings(self):
        found = {new for _, new in changes('T t = u"ABA";')}
        self.assertTrue({'u"BA"', 'u"AB"', 'u""'} <= found)
        self.assertEqual(len(found), 5)

    def test_statements_of_functions_are_dropped_and_declarations_are_not(self):
        found = {old for old, new in changes("struct S { int a; }; void f() { g(1); int b{2}; if (c) h(); return; }") if new == ";"}
        self.assertEqual(found, {"g(1);", "h();", "return;"})

    def test_the_last_break_of_a_switch_stays(self):
        source = "void f() { switch (a) { case 1: break; case 2: for (;;) { break; } break; } }"
        self.assertEqual(len([m for p in places_in({"a.cpp": source}) for m in p.mutants if m.old == "break;"]), 2)

    def test_conditions(self):
        found = {new for old, new in changes("void f() { if (a; b) c(); }") if old.strip() == "b"}
        self.assertEqual(found, {" !(b)", " false && (b)", " true || (b)"})

    def test_enumerators_are_exchanged_for_their_siblings(self):
        source = "enum class E : int {\n    A,  ///< one\n    B,\n};\nT t{E::A};"
        self.assertEqual(changes(source), {("A", "B")})

    def test_checks_and_directives_stay(self):
        self.assertEqual(changes("static_assert(a == 1);\n#define X 1\nusing T = A<3>;"), set())

    def test_the_same_seed_gives_the_same_mutants(self):
        places = places_in({"a.cpp": "int a[] = {1, 2, 3, 4, 5, 6};"})
        first, second, other = (
            [(m.start, m.new) for m in chosen(places, 4, seed)] for seed in (1, 1, 2)
        )  # fmt: skip
        self.assertEqual(first, second)
        self.assertNotEqual(first, other)

    def test_other_lines_do_not_change_the_sample(self):
        source = "".join(f"Width w{n}{{{n}}};\n" for n in range(10, 60)) + 'T t = u"ABCDEF";\n'
        edited = "// A comment.\nint other = 7;\n" + source.replace("Width w20{20};\n", "") + "bool b = true;\n"
        lines = ("int other", "Width w20", "bool b")
        for seed in range(9):
            before, after = (
                [m.after for m in chosen(places_in({"a.cpp": text}), 30, seed) if not m.before.startswith(lines)]
                for text in (source, edited)
            )  # fmt: skip
            common = min(len(before), len(after))
            self.assertGreaterEqual(common, 27)
            self.assertEqual(before[:common], after[:common])

    def test_a_small_sample_is_the_start_of_a_large_one(self):
        places = places_in({"a.cpp": "int a[] = {1, 2, 3, 4, 5, 6};"})
        small, large = ([m.after for m in chosen(places, count, 1)] for count in (3, 6))
        self.assertEqual(small, large[:3])

    def test_every_change_is_taken_once_when_more_are_asked_for(self):
        self.assertEqual(len(chosen(places_in({"a.cpp": "Width w{6};"}), 9, 1)), 3)


class Reach(unittest.TestCase):
    def test_a_row_is_used_by_whoever_uses_a_function_over_its_table(self):
        text = "constexpr int rows[] = {1, 2};\nconstexpr decltype(auto) rowOf(int i) { return (rows[i]); }\nint other();"
        names = reached("a.h", text.index("1"), {"a.h": text}, True)
        self.assertLessEqual({"rows", "rowOf"}, names)
        self.assertNotIn("other", names)


class Explanations(unittest.TestCase):
    def test_an_entry_fits_the_line_wherever_it_stands(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "explained.txt"
            path.write_text("file: a.cpp\nline: Width w{6};\nto: Width w{7};\nwhy: room\n")
            source = {"a.cpp": "\n\n   Width  w{6};\n"}
            explained = read_explained(path, source)
            found = {m.new: explained.why(m) for p in places_in(source) for m in p.mutants}
            self.assertEqual(found, {"7": "room", "5": "", "0": ""})
